#include "model/store/TaskOccurrences.h"

#include "corvexkit/recurrence/RuleMove.h"
#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/OccurrenceSteps.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskPermissions.h"

namespace {

using LastOne = TaskRepetition::LastOne;
using std::chrono::milliseconds;

bool isFirst(const TaskOccurrence &occurrence, const KWTask &task)
{
    return task->startDate == occurrence.startDate;
}

Error notThere() { return Error{storeText("The task does not repeat on that date any more.")}; }

void leaveOut(Instant date, KWTask &task) { task.set(&KWTaskModel::exDates, task->exDates + QList{date}); }

// Those of the later task start with it, those of the earlier one end before it.
void partExDates(KWTask &earlier, KWTask &later, Instant start)
{
    QList<Instant> before;
    QList<Instant> after;
    for (const Instant each : earlier->exDates)
        (each < start ? before : after).append(each);
    earlier.set(&KWTaskModel::exDates, before);
    later.set(&KWTaskModel::exDates, after);
}

void repeatNoMore(KWTask &task)
{
    task.set(&KWTaskModel::repeatRule, QString{});
    task.set(&KWTaskModel::exDates, QList<Instant>{});
}

void endAt(Instant occurrence, LastOne last, KWTask &task)
{
    const QString rule = TaskRepetition::ruleEndingAt(task.model(), occurrence, last, repetitionNow(task));
    if (rule.isEmpty()) return repeatNoMore(task);
    task.set(&KWTaskModel::repeatRule, rule);
}

// The first one stays where it is, and the task goes on without it.
KWTask &partFirst(KWTask &task)
{
    const auto next = nextRepetition(task);
    if (!next) {
        repeatNoMore(task);
        return task;
    }
    KWTask &single = leaveOpenCopy(task);
    repeatNoMore(single);
    goOnTo(task, *next);
    return single;
}

KWTask &partLater(KWTask &task, const TaskRepetition &occurrence, OccurrenceScope scope)
{
    KWTask &parted = leaveOpenCopy(task, &occurrence);
    if (scope == OccurrenceScope::OnlyThis) {
        repeatNoMore(parted);
        leaveOut(occurrence.startDate, task);
        return parted;
    }
    partExDates(task, parted, occurrence.startDate);
    endAt(occurrence.startDate, LastOne::TheOneBefore, task);
    return parted;
}

// The task that stands for those occurrences alone.
Result<KWTask *> partOf(KWTask &task, const TaskOccurrence &occurrence, OccurrenceScope scope)
{
    if (task->repeatRule.isEmpty()) return notThere();
    if (isFirst(occurrence, task)) return scope == OccurrenceScope::OnlyThis ? &partFirst(task) : &task;
    const auto there = TaskRepetition::at(task.model(), occurrence.startDate, repetitionNow(task));
    if (!there) return notThere();
    return scope == OccurrenceScope::All ? &task : &partLater(task, *there, scope);
}

// Moves the task as far as its occurrence is moved, with its rule and what it leaves out.
Result<void> moveAll(KWTask &task, Instant occurrence, const TaskOccurrences::Dates &to)
{
    const CXTimeZone zone = TaskRepetition::zoneOf(task.model(), task.context().clock().zone());
    const LocalTime from = zone.toLocal(occurrence);
    const LocalTime until = zone.toLocal(to.startDate);
    const auto moved = [&](Instant date) { return zone.toInstant(zone.toLocal(date) + (until - from)); };
    if (!task->repeatRule.isEmpty()) {
        const auto rule = CXRecurrenceRule::parse(task->repeatRule);
        const auto along = rule ? movedRule(*rule, from, until) : std::nullopt;
        if (!along)
            return Error{
                storeText("Its repeat rule cannot follow to that date. Change the rule, or move only "
                          "this one.")};
        if (*along != *rule) task.set(&KWTaskModel::repeatRule, along->toIcal());
        QList<Instant> exDates;
        for (const Instant each : task->exDates)
            exDates.append(moved(each));
        task.set(&KWTaskModel::exDates, exDates);
    }
    const Instant start = moved(*task->startDate);
    task.set(&KWTaskModel::startDate, std::optional{start});
    task.set(&KWTaskModel::endDate,
             to.endDate
                 ? std::optional{zone.toInstant(zone.toLocal(start) + (zone.toLocal(*to.endDate) - until))}
                 : std::nullopt);
    task.set(&KWTaskModel::isAllDay, to.isAllDay);
    task.set(&KWTaskModel::snoozedRemindDate, std::nullopt);
    return {};
}

} // namespace

Result<UndoToken> TaskOccurrences::save(const TaskOccurrence &occurrence, const Change &change)
{
    UndoToken undo;
    const auto edit = [&](ObjectContext &context) -> Result<void> {
        KWTask *task = context.find<KWTask>(occurrence.taskID);
        if (const Result<void> allowed = mayChangeOutsideTrash(task); !allowed) return allowed;
        if (const Result<void> changed = change(*task); !changed) return changed;
        undo = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(edit);
    if (!saved) return saved.error();
    return undo;
}

Result<TaskOccurrences::Changed> TaskOccurrences::changePart(const TaskOccurrence &occurrence,
                                                             OccurrenceScope scope, const Change &change)
{
    QString taskID;
    const Result<UndoToken> undo = save(occurrence, [&](KWTask &task) -> Result<void> {
        const Result<KWTask *> part = partOf(task, occurrence, scope);
        if (!part) return part.error();
        taskID = (*part)->sid();
        return change(**part);
    });
    if (!undo) return undo.error();
    return Changed{taskID, *undo};
}

Result<UndoToken> TaskOccurrences::skip(const TaskOccurrence &occurrence)
{
    return save(occurrence, [&](KWTask &task) -> Result<void> {
        if (task->repeatRule.isEmpty()) return notThere();
        if (isFirst(occurrence, task)) {
            const auto next = nextRepetition(task);
            if (!next) return Error{storeText("This is the last time. Delete the task to leave it out.")};
            goOnTo(task, *next);
            return {};
        }
        if (!TaskRepetition::at(task.model(), occurrence.startDate, repetitionNow(task))) return notThere();
        leaveOut(occurrence.startDate, task);
        return {};
    });
}

Result<TaskOccurrences::Changed> TaskOccurrences::close(const TaskOccurrence &occurrence, KWTaskStatus status)
{
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(occurrence.taskID);
    if (task && isFirst(occurrence, *task)) {
        const auto ticked = KWTaskTicker{m_manager}.updateStatus(status, {occurrence.taskID});
        if (!ticked) return ticked.error();
        return Changed{occurrence.taskID, ticked->undo};
    }
    return changePart(occurrence, OccurrenceScope::OnlyThis, [&](KWTask &single) -> Result<void> {
        single.set(&KWTaskModel::reminders, QStringList{});
        single.set(&KWTaskModel::repeatTaskID, occurrence.taskID);
        closeWithSubtasks(single, status);
        return {};
    });
}

Result<TaskOccurrences::Changed> TaskOccurrences::part(const TaskOccurrence &occurrence,
                                                       OccurrenceScope scope)
{
    return changePart(occurrence, scope, [](KWTask &) -> Result<void> { return {}; });
}

Result<TaskOccurrences::Changed> TaskOccurrences::move(const TaskOccurrence &occurrence,
                                                       OccurrenceScope scope, const Dates &to)
{
    return changePart(occurrence, scope, [&](KWTask &part) -> Result<void> {
        const bool isSeries = scope == OccurrenceScope::All;
        return moveAll(part, isSeries ? occurrence.startDate : *part->startDate, to);
    });
}

bool TaskOccurrences::mayBeForThisOnly(const TaskSchedule &chosen, const TaskSchedule &shown)
{
    return !shown.dates.repeatRule.isEmpty() && chosen.dates.repeatRule == shown.dates.repeatRule &&
           chosen.dates.startDateTime && shown.dates.startDateTime &&
           (chosen.dates.startDateTime != shown.dates.startDateTime ||
            chosen.dates.endDateTime != shown.dates.endDateTime);
}

Result<TaskOccurrences::Changed> TaskOccurrences::schedule(const QString &taskID, OccurrenceScope scope,
                                                           const TaskSchedule &chosen,
                                                           const TaskSchedule &shown)
{
    if (const Result<void> checked = chosen.check(); !checked) return checked.error();
    const std::optional<KWDateTime> &start = chosen.dates.startDateTime;
    const std::optional<KWDateTime> &end = chosen.dates.endDateTime;
    if (!mayBeForThisOnly(chosen, shown)) {
        const auto done = KWTaskEditor{m_manager}.setSchedule(taskID, chosen, shown);
        if (!done) return done.error();
        return Changed{taskID, *done};
    }
    const TaskOccurrence first{taskID, shown.dates.startDateTime->date};
    return changePart(first, scope, [&](KWTask &part) -> Result<void> {
        const Dates to{start->date, end ? std::optional{end->date} : std::nullopt, chosen.dates.isAllDay()};
        if (const Result<void> moved = moveAll(part, first.startDate, to); !moved) return moved;
        chosen.applyTo(part, shown);
        return {};
    });
}

Result<UndoToken> TaskOccurrences::endWith(const TaskOccurrence &occurrence)
{
    return save(occurrence, [&](KWTask &task) -> Result<void> {
        const Result<KWTask *> there = partOf(task, occurrence, OccurrenceScope::All);
        if (!there) return there.error();
        endAt(occurrence.startDate, LastOne::This, task);
        return {};
    });
}

Result<UndoToken> TaskOccurrences::endBefore(const TaskOccurrence &occurrence)
{
    return save(occurrence, [&](KWTask &task) -> Result<void> {
        const Result<KWTask *> there = partOf(task, occurrence, OccurrenceScope::All);
        if (!there) return there.error();
        if (isFirst(occurrence, task)) return Error{storeText("Nothing of the task would be left.")};
        endAt(occurrence.startDate, LastOne::TheOneBefore, task);
        return {};
    });
}
