#pragma once

#include "lists/TaskDropPlace.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWTaskListService;

/// Re-orders the shown list by hand: puts tasks between others, below others, into other sections. A task
/// that comes into another section gets what that stands for: its date, priority, list, tag, assignee,
/// column, pin, or its completion. Each call is one save that the token takes back, places included. What
/// cannot be is refused as a whole with a sentence. Main thread.
class TaskArranger {
public:
    explicit TaskArranger(KWCoreDataManager &manager) : m_manager(manager) {}

    Result<UndoToken> drop(const QStringList &taskIDs, const TaskDropPlace &place,
                           const KWTaskListService &shown);
    /// Why the tasks cannot be dropped there, as far as the list shows it; empty when they can.
    static QString hindrance(const QStringList &taskIDs, const TaskDropPlace &place,
                             const KWTaskListService &shown);

    /// Below the task above them on their level, behind its children.
    Result<UndoToken> nest(const QStringList &taskIDs, const KWTaskListService &shown);
    /// Out of their parents, right behind them.
    Result<UndoToken> unnest(const QStringList &taskIDs);

private:
    KWCoreDataManager &m_manager;
};
