#include "views/habits/HabitUndo.h"

#include <algorithm>

bool HabitUndo::hasAny(const QList<UndoToken> &done)
{
    return std::ranges::any_of(done, [](const UndoToken &each) { return !each.isEmpty(); });
}

std::function<void()> HabitUndo::undoing(const QList<UndoToken> &done, KWCoreDataManager &manager,
                                         const std::function<void(const QString &)> &fail)
{
    return [done, &manager, fail] {
        for (auto each = done.rbegin(); each != done.rend(); ++each)
            if (const Result<void> undone = each->undo(manager); !undone)
                return fail(undone.error().sentence);
    };
}
