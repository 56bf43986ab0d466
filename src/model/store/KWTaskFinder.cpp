#include "model/store/KWTaskFinder.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/ColumnCodec.h"
#include "model/store/CompletionOrder.h"
#include "model/store/Connection.h"
#include "model/store/FindAll.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskSearch.h"

#include <string>

namespace {

constexpr const char *isOpenTask = "status = 0 AND isDeleted = 0 AND isTrashed = 0";
constexpr const char *isOpenOrCompletedTask = "status IN (0, 2) AND isDeleted = 0 AND isTrashed = 0";

/// A condition put together piece by piece, each with what fills its placeholders.
struct TaskCondition {
    std::string where;
    SqlValues values{};

    TaskCondition &also(const std::string &piece, const SqlValues &more = {})
    {
        where += (where.empty() ? "" : " AND ") + piece;
        values.insert(values.end(), more.begin(), more.end());
        return *this;
    }

    /// The plus keeps the planner from walking the index of lists.
    TaskCondition &inListsOf(const QString &userID, TaskInclusions includes)
    {
        std::string lists = "+projectID IN (SELECT sid FROM projects WHERE userID = ? AND isDeleted = 0";
        if (!includes.testFlag(TaskInclusion::ClosedLists)) lists += " AND closed = 0";
        if (!includes.testFlag(TaskInclusion::HiddenProjects)) lists += " AND showsInSmartList = 1";
        return also(lists + ')', {userID});
    }

    TaskCondition &inListOrListsOf(const QString &projectID, const TaskOwner &owner, TaskInclusions includes)
    {
        return projectID.isEmpty() ? inListsOf(owner.userID, includes) : also("+projectID = ?", {projectID});
    }

    TaskCondition &forOwner(const TaskOwner &owner)
    {
        return owner.serverID ? also("assignee IN (?, ?)", {KWTaskAssignedToNobody, *owner.serverID}) : *this;
    }

    TaskCondition &orWith(const TaskCondition &other)
    {
        where += " UNION ALL " + other.where;
        values.insert(values.end(), other.values.begin(), other.values.end());
        return *this;
    }

    QList<KWTask *> fetch(ObjectContext &context, const char *orderBy, const char *index = nullptr) const
    {
        return context.fetch<KWTask>(
            {.where = where.c_str(), .values = values, .orderBy = orderBy, .index = index});
    }

    int count(ObjectContext &context, const std::string &from) const
    {
        return int(context.number(("SELECT count(*) FROM " + from + " WHERE " + where).c_str(), values));
    }
};

// Of the list, or of all open ones.
TaskCondition willRepeat(const TaskOwner &owner, const QString &projectID)
{
    TaskCondition condition{std::string{isOpenTask} + " AND repeatRule <> '' AND startDate IS NOT NULL"};
    if (projectID.isEmpty())
        condition.inListsOf(owner.userID, TaskInclusion::HiddenProjects);
    else
        condition.also("projectID = ?", {projectID});
    return condition.forOwner(owner);
}

TaskCondition openBefore(Instant end, const TaskOwner &owner)
{
    return TaskCondition{isOpenTask}
        .also("startDate < ?", {storedInstant(end)})
        .inListsOf(owner.userID, {})
        .forOwner(owner);
}

// The last moment of an all-day task is the end of its day.
TaskCondition &notOverdue(TaskCondition &condition, ObjectContext &context)
{
    const CXClock &clock = context.clock();
    const std::int64_t today = storedInstant(clock.zone().startOfDay(clock.today()));
    return condition.also("(status <> 0 OR startDate IS NULL OR CASE WHEN isAllDay THEN "
                          "coalesce(endDate > ?, startDate >= ?) ELSE coalesce(endDate, startDate) >= ? END)",
                          {today, today, storedInstant(clock.now())});
}

const std::string byCompletion = std::string{completionOrder} + ", id";

TaskCondition completedBetween(Instant from, Instant to)
{
    const std::string completion = completionOrder;
    return TaskCondition{"status <> 0 AND status = 2 AND isDeleted = 0 AND isTrashed = 0"}.also(
        completion + " >= ? AND " + completion + " < ?", {storedInstant(from), storedInstant(to)});
}

int countOfClosed(KWTaskStatus status, const QString &userID, ObjectContext &context)
{
    return TaskCondition{"status <> 0 AND isDeleted = 0 AND isTrashed = 0"}
        .also("status = ?", {std::int64_t(status)})
        .inListsOf(userID, {})
        .count(context, "tasks INDEXED BY closedTasksInOrder");
}

} // namespace

QList<KWTask *> KWTaskFinder::findAllTasksInProject(const QString &projectID, const TaskOwner &owner,
                                                    TaskInclusions includes, ObjectContext &context)
{
    const bool withCompleted = includes.testFlag(TaskInclusion::Completed);
    TaskCondition condition{withCompleted ? isOpenOrCompletedTask : isOpenTask};
    condition.also("projectID = ?", {projectID}).forOwner(owner);
    if (!includes.testFlag(TaskInclusion::Overdue)) notOverdue(condition, context);
    return condition.fetch(context, "sortOrder, id", withCompleted ? nullptr : "openTasksByList");
}

QList<KWTask *> KWTaskFinder::findAllTasksHaveTag(const QString &tagName, const QString &userID,
                                                  TaskInclusions includes, ObjectContext &context)
{
    const bool withCompleted = includes.testFlag(TaskInclusion::Completed);
    return TaskCondition{withCompleted ? isOpenOrCompletedTask : isOpenTask}
        .also("id IN (SELECT task FROM taskTags WHERE name = ?)", {tagName})
        .inListsOf(userID, includes | TaskInclusion::HiddenProjects)
        .fetch(context, "sortOrder, id");
}

QList<KWTask *> KWTaskFinder::fetchAllOfUser(const TaskOwner &owner, const QString &projectID, Instant from,
                                             Instant to, TaskInclusions includes, ObjectContext &context)
{
    const SqlValues range{storedInstant(from), storedInstant(to)};
    const auto startingInside = [&range](const char *index, const char *state) {
        return TaskCondition{std::string{"SELECT id FROM tasks INDEXED BY "} + index + " WHERE " + state}
            .also("startDate >= ? AND startDate < ?", range);
    };
    TaskCondition dated = startingInside("openTasksInOrder", isOpenTask);
    dated.orWith({"SELECT id FROM tasks INDEXED BY tasksByEnd WHERE isDeleted = 0 AND isTrashed = 0 AND "
                  "endDate > ?1 AND startDate < ?1"});
    const bool withCompleted = includes.testFlag(TaskInclusion::Completed);
    if (withCompleted)
        dated.orWith(startingInside("closedTasksByDate", "status <> 0 AND isDeleted = 0 AND isTrashed = 0"));

    TaskCondition condition{"id IN (" + dated.where + ')', dated.values};
    condition.also(withCompleted ? isOpenOrCompletedTask : isOpenTask)
        .inListOrListsOf(projectID, owner, includes)
        .forOwner(owner);
    if (!includes.testFlag(TaskInclusion::Repeating)) condition.also("repeatRule = ''");
    return condition.fetch(context, "startDate, priority DESC, sortOrder, id");
}

QList<KWTask *> KWTaskFinder::fetchCompletedAndNoDateBetween(Instant from, Instant to, const TaskOwner &owner,
                                                             ObjectContext &context)
{
    return completedBetween(from, to)
        .also("startDate IS NULL")
        .inListsOf(owner.userID, {})
        .forOwner(owner)
        .fetch(context, byCompletion.c_str(), "closedTasksInOrder");
}

QList<KWTask *> KWTaskFinder::fetchCompletedBetween(Instant from, Instant to, const TaskOwner &owner,
                                                    TaskInclusions includes, ObjectContext &context)
{
    return completedBetween(from, to)
        .inListsOf(owner.userID, includes)
        .forOwner(owner)
        .fetch(context, byCompletion.c_str(), "closedTasksInOrder");
}

QList<KWTask *> KWTaskFinder::findAllTasksWillRepeatOfUser(const TaskOwner &owner, const QString &projectID,
                                                           ObjectContext &context)
{
    return willRepeat(owner, projectID).fetch(context, "id", "repeatingTasks");
}

Result<std::vector<RepeatingTask>> KWTaskFinder::findAllTasksWillRepeatOfUser(const TaskOwner &owner,
                                                                              ObjectContext &context)
{
    const TaskCondition condition = willRepeat(owner, {});
    try {
        auto statement = context.connection().prepare(
            "SELECT sid, startDate, endDate, completionDate, isAllDay, isFloating, repeatRule, repeatFrom, "
            "exDates, timeZone FROM tasks INDEXED BY repeatingTasks WHERE " +
            condition.where);
        statement.bind(condition.values);
        std::vector<RepeatingTask> tasks;
        while (statement->executeStep()) {
            RepeatingTask &task = tasks.emplace_back();
            int column = 0;
            const auto read = [&](auto &...values) {
                (columns::read(statement->getColumn(column++), values), ...);
            };
            read(task.sid, task.startDate, task.endDate, task.completionDate, task.isAllDay, task.isFloating,
                 task.repeatRule, task.repeatFrom, task.exDates, task.timeZone);
        }
        return tasks;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<QList<KWTask *>> KWTaskFinder::fetchAllSearing(const QString &text, const QString &userID, int limit,
                                                      ObjectContext &context)
{
    const auto hits = TaskSearch::find({.userID = userID, .text = text, .limit = limit}, context.clock(),
                                       context.connection());
    if (!hits) return hits.error();
    QStringList ids;
    for (const TaskSearchHit &each : *hits)
        ids.append(each.row.sid);
    return findAll<KWTask>(ids, context);
}

KWTask *KWTaskFinder::findLatestCompletedTaskRepeatedByTask(const KWTask &task)
{
    const QList<KWTask *> latest = task.context().fetch<KWTask>(
        {.where =
             "repeatTaskID = ? AND repeatTaskID <> '' AND status = 2 AND isDeleted = 0 AND isTrashed = 0",
         .values = {task.sid()},
         .orderBy = "completionDate DESC, id DESC",
         .limit = 1});
    return latest.isEmpty() ? nullptr : latest.first();
}

int KWTaskFinder::countOfCompletedTasksOfUser(const QString &userID, ObjectContext &context)
{
    return countOfClosed(KWTaskStatusCompleted, userID, context);
}

int KWTaskFinder::countOfAbandonedTasksOfUser(const QString &userID, ObjectContext &context)
{
    return countOfClosed(KWTaskStatusAbandoned, userID, context);
}

int KWTaskFinder::countOnBadgeWithType(KWBadgeType type, const TaskOwner &owner, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    const Day today = context.clock().today();
    switch (type) {
    case KWBadgeType::None:
        return 0;
    case KWBadgeType::Inbox:
        return TaskCondition{isOpenTask}
            .also("projectID = ?", {KWProject::inboxIDOfUser(owner.userID)})
            .forOwner(owner)
            .count(context, "tasks INDEXED BY openTasksByList");
    case KWBadgeType::All:
        return TaskCondition{isOpenTask}
            .inListsOf(owner.userID, {})
            .forOwner(owner)
            .count(context, "tasks INDEXED BY openTasksInOrder");
    case KWBadgeType::Today:
    case KWBadgeType::OverdueAndToday:
        break;
    }
    const Instant end = zone.startOfDay(today + std::chrono::days{1});
    TaskCondition tasks = openBefore(end, owner);
    TaskCondition items{"status = 0 AND isDeleted = 0 AND startDate < ?", {storedInstant(end)}};
    if (type == KWBadgeType::Today) {
        const std::int64_t start = storedInstant(zone.startOfDay(today));
        tasks.also("(startDate >= ? OR endDate > ?)", {start, start});
        items.also("startDate >= ?", {start});
    }
    const TaskCondition owning = TaskCondition{isOpenTask}.inListsOf(owner.userID, {}).forOwner(owner);
    const std::string found = "EXISTS (SELECT 1 FROM tasks WHERE sid = taskID AND kind = 'CHECKLIST' AND ";
    items.also(found + owning.where + ')', owning.values);
    return tasks.count(context, "tasks INDEXED BY openTasksInOrder") +
           items.count(context, "checklistItems INDEXED BY openChecklistItemsByDate");
}
