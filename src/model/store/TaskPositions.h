#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWCoreDataManager;
class ObjectContext;

/// A group of tasks that has an order of its own, set by hand: the section of a list.
struct PositionGroup {
    QString contextID; ///< of the list, see contextID()
    KWTaskSortType sortType = KWTaskSortTypeDate;
    QString group; ///< what the section stands for, as the sort-order records hold it; see positionGroup()
};

/// Writes down where `moved` stand among `inOrder`, the tasks of the group in the order wanted: they and all
/// that are above them get positions, which come before those that have none.
void arrange(const QStringList &inOrder, const QStringList &moved, const PositionGroup &group,
             const QString &userID, ObjectContext &context);

/// Gives the positions of all groups up, in one save.
Result<UndoToken> removePositions(const QString &contextID, KWTaskSortType sortType,
                                  KWCoreDataManager &manager);
