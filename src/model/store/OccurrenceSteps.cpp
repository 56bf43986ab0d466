#include "model/store/OccurrenceSteps.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"

#include <QSet>

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

template <class Twin>
Twin openAgain(Twin model)
{
    model.status = KWTaskStatusOpen;
    model.completionDate.reset();
    model.remindTime.reset();
    model.snoozedRemindDate.reset();
    return model;
}

// As it stands at that occurrence: a subtask, an item of a checklist, the task itself.
KWTaskModel subtaskAt(const TaskRepetition &occurrence, const KWTaskModel &subtask)
{
    KWTaskModel moved = openAgain(subtask);
    moved.progress = 0;
    for (const auto date : {&KWTaskModel::startDate, &KWTaskModel::endDate})
        if (moved.*date) moved.*date = occurrence.movedAlong(*(moved.*date), moved.isAllDay);
    return moved;
}

KWChecklistItemModel itemAt(const TaskRepetition &occurrence, const KWChecklistItemModel &item)
{
    KWChecklistItemModel moved = openAgain(item);
    if (moved.startDate) moved.startDate = occurrence.movedAlong(*moved.startDate, moved.isAllDay);
    return moved;
}

KWTaskModel taskAt(const TaskRepetition &occurrence, const KWTaskModel &task)
{
    KWTaskModel moved = subtaskAt(occurrence, task);
    moved.startDate = occurrence.startDate;
    moved.endDate = occurrence.endDate;
    moved.repeatRule = occurrence.repeatRule;
    return moved;
}

void assignWithChecklist(KWTask &task, const KWTaskModel &moved, const TaskRepetition &occurrence)
{
    task.assign(moved);
    for (KWChecklistItem *each : task.orderedChecklistItems())
        each->assign(itemAt(occurrence, each->model()));
}

KWTask &closedCopy(const KWTask &task, KWTaskStatus status)
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

// With its checklist as it is, or as it stands at the occurrence.
KWTask &openCopy(const KWTask &task, KWTaskModel model, const TaskRepetition *occurrence)
{
    KWTask &copy = task.context().insert<KWTask>(freshCopy(std::move(model)));
    copyChecklist(task, copy.sid(), [occurrence](const KWChecklistItemModel &item) {
        return occurrence ? itemAt(*occurrence, item) : item;
    });
    copyAttachments(task, copy.sid());
    return copy;
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

KWTask &leaveOpenCopy(KWTask &task, const TaskRepetition *occurrence)
{
    const auto subtask = [occurrence](const KWTask &each) -> KWTask & {
        return openCopy(each, occurrence ? subtaskAt(*occurrence, each.model()) : each.model(), occurrence);
    };
    KWTask &copy = openCopy(task, occurrence ? taskAt(*occurrence, task.model()) : task.model(), occurrence);
    copyBelow(task, copy, subtasksGoingAlong(task), subtask);
    copy.attachBehind(task);
    return copy;
}

void goOnTo(KWTask &task, const TaskRepetition &occurrence)
{
    for (KWTask *each : subtasksGoingAlong(task))
        assignWithChecklist(*each, subtaskAt(occurrence, each->model()), occurrence);
    assignWithChecklist(task, taskAt(occurrence, task.model()), occurrence);
}

void closeWithSubtasks(KWTask &task, KWTaskStatus status)
{
    task.updateStatus(status);
    for (KWTask *each : KWTask::descendantTasks(task, KWTask::Closed::LeaveOut, task.context()))
        each->updateStatus(status);
}
