#pragma once

#include "corvexkit/Result.h"
#include "model/store/RepeatingTask.h"

#include <QFlags>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

class KWTask;
class ObjectContext;

/// Whose tasks are meant: those in the lists of the account, and of them, when the server id is given,
/// those assigned to that person or to nobody.
struct TaskOwner {
    QString userID;
    std::optional<std::int64_t> serverID{};
};

/// What a search takes besides the open tasks of open lists.
enum class TaskInclusion {
    Overdue = 1,        ///< open tasks whose day is past
    Completed = 2,      ///< not the abandoned ones
    ClosedLists = 4,    ///< tasks in archived lists
    HiddenProjects = 8, ///< tasks in lists that smart lists leave out
    Repeating = 16,     ///< tasks that repeat
};
Q_DECLARE_FLAGS(TaskInclusions, TaskInclusion)
Q_DECLARE_OPERATORS_FOR_FLAGS(TaskInclusions)

/// What the badge on the application's icon counts. The numbers are stored.
enum class KWBadgeType { None = 0, Today = 1, OverdueAndToday = 2, Inbox = 3, All = 4 };

/// Finds and counts tasks, each by one indexed query. Tasks deleted or in the trash are never meant. The
/// records belong to the context. A store that cannot be read answers nothing, and the log says why.
class KWTaskFinder {
public:
    /// The tasks of a list in their manual order.
    static QList<KWTask *> findAllTasksInProject(const QString &projectID, const TaskOwner &owner,
                                                 TaskInclusions includes, ObjectContext &context);
    /// In their manual order.
    static QList<KWTask *> findAllTasksHaveTag(const QString &tagName, const QString &userID,
                                               TaskInclusions includes, ObjectContext &context);
    /// The tasks whose dates reach into [from, to), by date; of the list, or of all when `projectID` is
    /// empty.
    static QList<KWTask *> fetchAllOfUser(const TaskOwner &owner, const QString &projectID, Instant from,
                                          Instant to, TaskInclusions includes, ObjectContext &context);
    /// The tasks without a date that were completed in [from, to), by completion.
    static QList<KWTask *> fetchCompletedAndNoDateBetween(Instant from, Instant to, const TaskOwner &owner,
                                                          ObjectContext &context);
    /// The tasks that were completed in [from, to), by completion. Hidden lists count only where that is
    /// included, as do closed ones.
    static QList<KWTask *> fetchCompletedBetween(Instant from, Instant to, const TaskOwner &owner,
                                                 TaskInclusions includes, ObjectContext &context);
    /// The open tasks with a date and a recurrence rule, in the order they came into the store; of the
    /// list, or of all open ones when `projectID` is empty.
    static QList<KWTask *> findAllTasksWillRepeatOfUser(const TaskOwner &owner, const QString &projectID,
                                                        ObjectContext &context);
    /// When those of all open lists occur, read at one go, without their records and in no order.
    static Result<std::vector<RepeatingTask>> findAllTasksWillRepeatOfUser(const TaskOwner &owner,
                                                                           ObjectContext &context);
    /// The tasks with the words of the text, at most `limit`, found and ordered as by TaskSearch.
    static Result<QList<KWTask *>> fetchAllSearing(const QString &text, const QString &userID, int limit,
                                                   ObjectContext &context);
    /// The occurrence of a repeating task that was completed last; none when there is none.
    static KWTask *findLatestCompletedTaskRepeatedByTask(const KWTask &task);

    static int countOfCompletedTasksOfUser(const QString &userID, ObjectContext &context);
    static int countOfAbandonedTasksOfUser(const QString &userID, ObjectContext &context);
    /// The open tasks that the type selects, by the context's clock; for the types of days also the open
    /// checklist items with such a date of their own.
    static int countOnBadgeWithType(KWBadgeType type, const TaskOwner &owner, ObjectContext &context);
};
