#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/TaskSchedule.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWCoreDataManager;
class KWTask;

/// An occurrence of a repeating task: the task's own date, or a later one of its rule.
struct TaskOccurrence {
    QString taskID;
    Instant startDate;
};

/// What of a repeating task a change is for.
enum class OccurrenceScope { OnlyThis, ThisAndLater, All };

/// Changes single occurrences of repeating tasks, each in one save that can be taken back. What is changed
/// for some occurrences only becomes a task of its own, with its checklist, its attachments and copies of the
/// subtasks that go along; docs/repeating.md has the rules. Where a task has no such occurrence (any more),
/// or may not be changed, a sentence says so and nothing is changed. Main thread.
class TaskOccurrences {
public:
    explicit TaskOccurrences(KWCoreDataManager &manager) : m_manager(manager) {}

    struct Changed {
        QString taskID; ///< of the task that stands for what was changed now
        UndoToken undo;
    };

    /// Leaves it out. Of the first one the task goes on to the next; the last one of all cannot be left out.
    Result<UndoToken> skip(const TaskOccurrence &occurrence);
    /// Completes or abandons it: a closed copy stands there.
    Result<Changed> close(const TaskOccurrence &occurrence, KWTaskStatus status);
    /// Makes it, or it and the later ones, a task of its own. All of them already are.
    Result<Changed> part(const TaskOccurrence &occurrence, OccurrenceScope scope);

    struct Dates {
        Instant startDate;
        std::optional<Instant> endDate{}; ///< exclusive when all-day
        bool isAllDay = false;
    };
    /// Moves it there, and the others of `scope` as far by the wall clock; the rule goes along.
    Result<Changed> move(const TaskOccurrence &occurrence, OccurrenceScope scope, const Dates &to);
    /// Whether what is chosen moves the date of a task that goes on repeating as before, so that it may be
    /// meant for this one only.
    static bool mayBeForThisOnly(const TaskSchedule &chosen, const TaskSchedule &shown);
    /// Gives the task's own date, or all of them, what is chosen and was not `shown`, see TaskSchedule. With
    /// another rule, or none, it is for all.
    Result<Changed> schedule(const QString &taskID, OccurrenceScope scope, const TaskSchedule &chosen,
                             const TaskSchedule &shown);

    /// It is the last one from now on.
    Result<UndoToken> endWith(const TaskOccurrence &occurrence);
    /// It and the later ones are no more. Of the first one that is the whole task: it is to be deleted.
    Result<UndoToken> endBefore(const TaskOccurrence &occurrence);

private:
    using Change = std::function<Result<void>(KWTask &)>;
    Result<UndoToken> save(const TaskOccurrence &occurrence, const Change &change);
    Result<Changed> changePart(const TaskOccurrence &occurrence, OccurrenceScope scope, const Change &change);

    KWCoreDataManager &m_manager;
};
