#include "model/store/OccurrenceSteps.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"

namespace {

// A subtask that repeats goes its own way.
bool goesAlong(const KWTask *subtask)
{
    return (*subtask)->repeatRule.isEmpty() && (*subtask)->repeatTaskID.isEmpty() && !subtask->isAbandoned();
}

// With those below it, but for what is below one that does not go along.
QList<KWTask *> subtasksGoingAlong(KWTask &task)
{
    QList<KWTask *> along;
    QSet<QString> parents{task.sid()};
    for (KWTask *each : KWTask::descendantTasks(task, KWTask::Closed::Include, task.context())) {
        if (!goesAlong(each) || !parents.contains((*each)->parentId)) continue;
        parents.insert(each->sid());
        along.append(each);
    }
    return along;
}

KWTaskModel singleCopy(const KWTask &task)
{
    KWTaskModel copy = freshCopy(task.model());
    copy.repeatRule.clear();
    copy.exDates.clear();
    return copy;
}

KWTask &closedCopy(const KWTask &task, KWTaskStatus status)
{
    KWTaskModel model = singleCopy(task);
    model.repeatTaskID = task.sid();
    model.reminders.clear();
    KWTask &copy = task.context().insert<KWTask>(std::move(model));
    if (copy->status == KWTaskStatusOpen) copy.updateStatus(status);
    copyChecklist(task, copy.sid());
    return copy;
}

KWTask &openCopy(const KWTask &task)
{
    KWTask &copy = task.context().insert<KWTask>(singleCopy(task));
    copyChecklist(task, copy.sid());
    copyAttachments(task, copy.sid());
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

void moveAlong(KWTask &subtask, const TaskRepetition &next)
{
    for (const auto member : {&KWTaskModel::startDate, &KWTaskModel::endDate})
        if (const auto &date = subtask.model().*member)
            subtask.set(member, next.movedAlong(*date, subtask->isAllDay));
    beginAgain(subtask, next);
}

} // namespace

TaskRepetition::Now repetitionNow(const KWTask &task)
{
    const CXClock &clock = task.context().clock();
    return {clock.now(), clock.zone(), KWUserSettings::firstWeekdayOfUser(task->userID, task.context())};
}

std::optional<TaskRepetition> nextRepetition(const KWTask &task)
{
    if (task->repeatRule.isEmpty()) return std::nullopt;
    return TaskRepetition::next(task.model(), repetitionNow(task));
}

KWTask &leaveClosedCopy(KWTask &task, KWTaskStatus status)
{
    const auto make = [status](const KWTask &each) -> KWTask & { return closedCopy(each, status); };
    KWTask &copy = make(task);
    copyBelow(task, copy, subtasksGoingAlong(task), make);
    return copy;
}

KWTask &leaveOpenCopy(KWTask &task)
{
    KWTask &copy = openCopy(task);
    copyBelow(task, copy, subtasksGoingAlong(task), openCopy);
    copy.attachBehind(task);
    return copy;
}

void goOnTo(KWTask &task, const TaskRepetition &occurrence)
{
    for (KWTask *each : subtasksGoingAlong(task))
        moveAlong(*each, occurrence);
    beginAgain(task, occurrence);
    task.set(&KWTaskModel::startDate, occurrence.startDate);
    task.set(&KWTaskModel::endDate, occurrence.endDate);
    task.set(&KWTaskModel::repeatRule, occurrence.repeatRule);
}

void closeWithSubtasks(KWTask &task, KWTaskStatus status)
{
    task.updateStatus(status);
    for (KWTask *each : KWTask::descendantTasks(task, KWTask::Closed::LeaveOut, task.context()))
        each->updateStatus(status);
}
