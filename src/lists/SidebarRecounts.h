#pragma once

#include "lists/KWProjectListNode.h"
#include "model/store/SidebarCounts.h"

#include <QStringList>

/// The notifications on which nodes of the sidebar count their tasks again.
QStringList recountNotifications();
/// Whether nodes of that kind do so on that notification. Only what the notification can have changed: a
/// new day moves no task from one list to another.
bool recountsOn(const QString &notification, KWProjectListNodeType type);
/// The counts of all kinds of nodes that do.
SidebarCountKinds countsToRenewOn(const QString &notification);
