#pragma once

#include "views/theme/Icons.h"

#include <QString>

#include <optional>

class KWProjectListNode;

/// The icon of a smart list.
Icon iconOfSmartList(const QString &identifier);

/// The icon of a node of the sidebar; none of a list of
/// tasks that is not shared, which has a dot in its colour.
std::optional<Icon> iconOfNode(const KWProjectListNode &node, bool isInbox);
