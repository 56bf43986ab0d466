#include "model/store/KWTaskTicker.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/records/KWUserSettings.h"
#include "model/records/TaskRepetition.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskCopies.h"
#include "model/store/TaskPermissions.h"

#include <QHash>

namespace {

std::optional<TaskRepetition> repetitionOf(const KWTask &task)
{
    if (task->repeatRule.isEmpty()) return std::nullopt;
    const CXClock &clock = task.context().clock();
    return TaskRepetition::next(
        task.model(),
        {clock.now(), clock.zone(), KWUserSettings::firstWeekdayOfUser(task->userID, task.context())});
}

// The finished occurrence: it says what was done, repeats no more and reminds of nothing.
KWTask &leaveCopy(const KWTask &task, KWTaskStatus status)
{
    KWTaskModel model = freshCopy(task.model());
    model.repeatTaskID = task.sid();
    model.repeatRule.clear();
    model.exDates.clear();
    model.reminders.clear();
    KWTask &copy = task.context().insert<KWTask>(std::move(model));
    if (copy->status == KWTaskStatusOpen) copy.updateStatus(status);
    copyChecklist(task, copy.sid());
    return copy;
}

void beginAgain(KWTask &task, const TaskRepetition &next)
{
    if (task->status != KWTaskStatusOpen) task.updateStatus(KWTaskStatusOpen);
    task.set(&KWTaskModel::progress, 0);
    task.set(&KWTaskModel::remindTime, std::nullopt);
    task.set(&KWTaskModel::snoozedRemindDate, std::nullopt);
    for (KWChecklistItem *each : task.orderedChecklistItems()) {
        if (each->isCompleted()) each->updateStatus(KWTaskStatusOpen);
        each->set(&KWChecklistItemModel::snoozedRemindDate, std::nullopt);
        if (const auto date = (*each)->startDate)
            each->set(&KWChecklistItemModel::startDate, next.movedAlong(*date, (*each)->isAllDay));
    }
}

// A subtask that repeats goes its own way.
bool goesAlong(const KWTask &subtask)
{
    return subtask->repeatRule.isEmpty() && subtask->repeatTaskID.isEmpty() && !subtask.isAbandoned();
}

void moveAlong(KWTask &subtask, const TaskRepetition &next)
{
    for (const auto member : {&KWTaskModel::startDate, &KWTaskModel::endDate})
        if (const auto &date = subtask.model().*member)
            subtask.set(member, next.movedAlong(*date, subtask->isAllDay));
    beginAgain(subtask, next);
}

void goOn(KWTask &task, KWTaskStatus status, const TaskRepetition &next)
{
    QHash<QString, KWTask *> copies{{task.sid(), &leaveCopy(task, status)}};
    const auto subtasks = KWTask::descendantTasks(task, KWTask::Closed::Include, task.context());
    for (KWTask *each : subtasks) {
        KWTask *parent = copies.value((*each)->parentId);
        if (!parent || !goesAlong(*each)) continue;
        KWTask &copy = leaveCopy(*each, status);
        copy.set(&KWTaskModel::parentId, parent->sid());
        parent->set(&KWTaskModel::childIds, (*parent)->childIds + QStringList{copy.sid()});
        copies.insert(each->sid(), &copy);
        moveAlong(*each, next);
    }
    beginAgain(task, next);
    task.set(&KWTaskModel::startDate, next.startDate);
    task.set(&KWTaskModel::endDate, next.endDate);
    task.set(&KWTaskModel::repeatRule, next.repeatRule);
}

void close(KWTask &task, KWTaskStatus status)
{
    task.updateStatus(status);
    for (KWTask *each : KWTask::descendantTasks(task, KWTask::Closed::LeaveOut, task.context()))
        each->updateStatus(status);
}

// Answers where a task that repeats went on to.
std::optional<TaskRepetition> apply(KWTaskStatus status, KWTask &task)
{
    const KWTaskStatus before = task->status;
    if (before == status) return std::nullopt;
    const auto next = before == KWTaskStatusOpen ? repetitionOf(task) : std::nullopt;
    if (next)
        goOn(task, status, *next);
    else if (before == KWTaskStatusOpen)
        close(task, status);
    else
        task.updateStatus(status);
    return next;
}

} // namespace

Result<KWTaskTicker::Ticked> KWTaskTicker::tick(const QStringList &ids)
{
    ObjectContext &context = m_manager.MR_defaultContext();
    QStringList openOnes;
    const auto collect = [&openOnes](const auto &records) {
        for (const auto *each : records)
            if ((*each)->status == KWTaskStatusOpen) openOnes.append(each->sid());
    };
    collect(findAll<KWTask>(ids, context));
    collect(findStored<KWChecklistItem>(ids, context));
    return openOnes.isEmpty() ? updateStatus(KWTaskStatusOpen, ids)
                              : updateStatus(KWTaskStatusCompleted, openOnes);
}

Result<KWTaskTicker::Ticked> KWTaskTicker::updateStatus(KWTaskStatus status, const QStringList &ids)
{
    Ticked ticked{status};
    const auto update = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(ids, context);
        const bool takesItems = status != KWTaskStatusAbandoned;
        const auto items =
            takesItems ? findStored<KWChecklistItem>(ids, context) : QList<KWChecklistItem *>{};
        if (tasks.isEmpty() && items.isEmpty()) return mayChange(nullptr);
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        if (const Result<void> allowed = mayChangeOutsideTrash(items); !allowed) return allowed;
        for (KWChecklistItem *each : items) // before a task that repeats leaves a copy with its ticks
            if ((*each)->status != status) each->updateStatus(status);
        for (KWTask *each : tasks)
            if (const auto next = apply(status, *each)) ticked.nextDate = next->startDate;
        ticked.undo = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(update);
    if (!saved) return saved.error();
    return ticked;
}
