#pragma once

#include <QStringList>

class BatchActions;
class KWCoreDataManager;
class QPoint;
class QWidget;

/// Asks by typing for the list that the tasks move to, in a frame over `window` whose corner is there, and
/// moves them. Lists that take no tasks are not offered. Main thread.
void askForListOf(const QStringList &taskIDs, BatchActions &actions, KWCoreDataManager &manager,
                  QWidget &window, const QPoint &position);
