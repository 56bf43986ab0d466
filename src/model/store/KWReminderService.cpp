#include "model/store/KWReminderService.h"

#include "corvexkit/log/CXLog.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "model/records/NextAlert.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

#include <algorithm>

namespace {

constexpr CXLogger reminderLog{u"reminders"};

constexpr const char *nextOfTasks =
    "SELECT remindTime FROM tasks INDEXED BY tasksByRemindTime WHERE remindTime > ? AND status = 0 AND "
    "isDeleted = 0 AND isTrashed = 0 AND userID = ? ORDER BY remindTime LIMIT 1";
constexpr const char *nextOfItems =
    "SELECT remindTime FROM checklistItems INDEXED BY checklistItemsByRemindTime WHERE remindTime > ? AND "
    "status = 0 AND isDeleted = 0 AND userID = ? ORDER BY remindTime LIMIT 1";
constexpr const char *nextOfHabits =
    "SELECT remindTime FROM habits INDEXED BY habitsByRemindTime WHERE remindTime > ? AND isArchived = 0 AND "
    "isDeleted = 0 AND userID = ? ORDER BY remindTime LIMIT 1";

constexpr const char *dueTasks =
    "remindTime <= ? AND status = 0 AND isDeleted = 0 AND isTrashed = 0 AND +userID = ?";
constexpr const char *dueItems = "remindTime <= ? AND status = 0 AND isDeleted = 0 AND +userID = ?";
constexpr const char *dueHabits = "remindTime <= ? AND isArchived = 0 AND isDeleted = 0 AND +userID = ?";

constexpr const char *tasksWithoutAlert =
    "startDate > ? AND status = 0 AND isDeleted = 0 AND isTrashed = 0 AND remindTime IS NULL AND reminders "
    "<> '[]' AND userID = ?";
constexpr const char *itemsWithoutAlert = "startDate > ? AND status = 0 AND isDeleted = 0 AND isAllDay = 0 "
                                          "AND remindTime IS NULL AND userID = ?";

constexpr const char *habitsThatRemind =
    "(remindTime > ? OR (remindTime IS NULL AND reminders <> '[]')) AND isArchived = 0 AND isDeleted = 0 AND "
    "userID = ?";

bool isAlive(const KWTask *task)
{
    return task && (*task)->status == KWTaskStatusOpen && task->isNotDeleted() && !(*task)->isTrashed;
}

bool isQuiet(const KWTask &task, const std::optional<std::int64_t> &serverID)
{
    const KWProject *list = task.project();
    const bool isListQuiet = !list || list->isClosed() || (*list)->isMuted;
    const bool isMine = task->assignee == KWTaskAssignedToNobody || !serverID || task->assignee == serverID;
    return isListQuiet || !isMine;
}

DueReminder reminderOfTask(const KWTask &task, const std::optional<std::int64_t> &serverID)
{
    const KWProject *list = task.project();
    return {.subject = {.taskID = task.sid()},
            .moment = task->remindTime.value_or(Instant{}),
            .title = task->title,
            .taskTitle = {},
            .listName = list ? (*list)->name : QString{},
            .startDate = task->startDate,
            .isAllDay = task->isAllDay,
            .isSilent = isQuiet(task, serverID)};
}

DueReminder reminderOfItem(const KWChecklistItem &item, const std::optional<std::int64_t> &serverID)
{
    DueReminder reminder{.subject = {.taskID = item->taskID, .itemID = item.sid()},
                         .moment = item->remindTime.value_or(Instant{}),
                         .title = item->title,
                         .taskTitle = {},
                         .listName = {},
                         .startDate = item->startDate,
                         .isAllDay = item->isAllDay,
                         .isSilent = true};
    if (const KWTask *task = item.context().find<KWTask>(item->taskID); isAlive(task)) {
        const DueReminder ofTask = reminderOfTask(*task, serverID);
        reminder.taskTitle = ofTask.title;
        reminder.listName = ofTask.listName;
        reminder.isSilent = ofTask.isSilent;
    }
    return reminder;
}

DueReminder reminderOfHabit(const KWHabit &habit, Instant now)
{
    const CXClock &clock = habit.context().clock();
    const Instant moment =
        lastAlert(habit.model(), now, clock.zone()).value_or(habit->remindTime.value_or(Instant{}));
    const Day day = KWUserSettings::habitDayOfUser(habit->userID, moment, habit.context());
    return {.subject = {.habitID = habit.sid()},
            .moment = moment,
            .title = habit->name,
            .taskTitle = {},
            .listName = {},
            .startDate = {},
            .isSilent = day != habit.today() || !habit.isOpenOn(day)};
}

// What is past of a snooze has been said.
template <class Record>
void clearPastSnooze(Record &record, Instant now)
{
    using Model = typename Record::Model;
    if (record->snoozedRemindDate && *record->snoozedRemindDate <= now)
        record.set(&Model::snoozedRemindDate, std::nullopt);
}

void plan(KWTask &task, Instant after)
{
    task.set(&KWTaskModel::remindTime, nextAlert(task.model(), after, task.context().clock().zone()));
}

void plan(KWChecklistItem &item, Instant after)
{
    item.set(&KWChecklistItemModel::remindTime, nextAlert(item.model(), after));
}

void plan(KWHabit &habit, Instant after)
{
    habit.set(&KWHabitModel::remindTime, nextAlert(habit.model(), after, habit.context().clock().zone()));
}

/// Saves what `change` does to the tasks, items and habits of the reminders, as far as they are there.
template <class Change>
Result<void> saveEach(const QList<DueReminder> &reminders, KWCoreDataManager &manager, const Change &change)
{
    return KWCoreDataService{manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        for (const DueReminder &each : reminders)
            if (each.subject.isHabit()) {
                if (auto *habit = context.find<KWHabit>(each.subject.habitID)) change(*habit, each);
            } else if (!each.subject.itemID.isEmpty()) {
                if (auto *item = context.find<KWChecklistItem>(each.subject.itemID)) change(*item, each);
            } else if (auto *task = context.find<KWTask>(each.subject.taskID)) {
                change(*task, each);
            }
        return {};
    });
}

Result<void> planAllMissing(const QString &userID, ObjectContext &context)
{
    const Instant now = context.clock().now();
    for (KWTask *each :
         context.fetch<KWTask>({.where = tasksWithoutAlert, .values = {storedInstant(now), userID}}))
        plan(*each, now);
    for (KWChecklistItem *each :
         context.fetch<KWChecklistItem>({.where = itemsWithoutAlert, .values = {storedInstant(now), userID}}))
        plan(*each, now);
    for (KWHabit *each :
         context.fetch<KWHabit>({.where = habitsThatRemind, .values = {storedInstant(now), userID}}))
        plan(*each, now);
    return {};
}

} // namespace

std::optional<Instant> KWReminderService::nextRemindTime(const QString &userID, Instant after) const
{
    std::optional<Instant> next;
    for (const char *sql : {nextOfTasks, nextOfItems, nextOfHabits}) {
        const std::int64_t found = m_manager.MR_defaultContext().number(sql, {storedInstant(after), userID});
        const Instant moment{std::chrono::milliseconds{found}};
        if (found != 0 && (!next || moment < *next)) next = moment;
    }
    return next;
}

QList<DueReminder> KWReminderService::due(const TaskOwner &owner, Instant now) const
{
    ObjectContext &context = m_manager.MR_defaultContext();
    const SqlValues values{storedInstant(now), owner.userID};
    QList<DueReminder> reminders;
    for (const KWTask *each : context.fetch<KWTask>({.where = dueTasks, .values = values}))
        reminders.append(reminderOfTask(*each, owner.serverID));
    for (const KWChecklistItem *each : context.fetch<KWChecklistItem>({.where = dueItems, .values = values}))
        reminders.append(reminderOfItem(*each, owner.serverID));
    for (const KWHabit *each : context.fetch<KWHabit>({.where = dueHabits, .values = values}))
        reminders.append(reminderOfHabit(*each, now));
    std::ranges::stable_sort(reminders, {}, &DueReminder::moment);
    return reminders;
}

std::optional<DueReminder> KWReminderService::reminderOf(const ReminderSubject &subject) const
{
    ObjectContext &context = m_manager.MR_defaultContext();
    if (subject.isHabit()) {
        const KWHabit *habit = context.find<KWHabit>(subject.habitID);
        if (!habit || habit->isDeleted() || (*habit)->isArchived) return std::nullopt;
        const DueReminder reminder = reminderOfHabit(*habit, context.clock().now());
        return reminder.isSilent ? std::nullopt : std::optional{reminder};
    }
    const KWTask *task = context.find<KWTask>(subject.taskID);
    if (!isAlive(task)) return std::nullopt;
    if (subject.itemID.isEmpty()) return reminderOfTask(*task, std::nullopt);
    const KWChecklistItem *item = context.find<KWChecklistItem>(subject.itemID);
    if (!item || item->isDeleted() || item->isCompleted()) return std::nullopt;
    return reminderOfItem(*item, std::nullopt);
}

Result<void> KWReminderService::markDelivered(const QList<DueReminder> &reminders, Instant now)
{
    return saveEach(reminders, m_manager, [now](auto &record, const DueReminder &) {
        clearPastSnooze(record, now);
        plan(record, now);
    });
}

Result<void> KWReminderService::markUndelivered(const QList<DueReminder> &reminders)
{
    return saveEach(reminders, m_manager, []<class Record>(Record &record, const DueReminder &reminder) {
        record.set(&Record::Model::remindTime, reminder.moment);
    });
}

Result<void> KWReminderService::snooze(const ReminderSubject &subject, Instant until)
{
    return KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        if (subject.isHabit()) {
            KWHabit *habit = context.find<KWHabit>(subject.habitID);
            if (!habit || habit->isDeleted()) return Error{storeText("There is no such habit any more.")};
            habit->set(&KWHabitModel::snoozedRemindDate, until);
            return {};
        }
        KWTask *task = context.find<KWTask>(subject.taskID);
        if (!isAlive(task)) return Error{storeText("There is no such task any more.")};
        if (subject.itemID.isEmpty()) {
            task->set(&KWTaskModel::snoozedRemindDate, until);
            return {};
        }
        KWChecklistItem *item = context.find<KWChecklistItem>(subject.itemID);
        if (!item || item->isDeleted()) return Error{storeText("There is no such item any more.")};
        item->set(&KWChecklistItemModel::snoozedRemindDate, until);
        return {};
    });
}

void KWReminderService::planMissing(const QString &userID)
{
    KWCoreDataService{m_manager}.async_save(
        [userID](ObjectContext &context) { return planAllMissing(userID, context); },
        [](const Result<void> &done) {
            if (!done) reminderLog.error(done.error().sentence);
        });
}
