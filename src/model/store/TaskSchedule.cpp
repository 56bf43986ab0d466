#include "model/store/TaskSchedule.h"

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "model/records/KWTask.h"
#include "model/store/StoreFailure.h"

TaskSchedule TaskSchedule::ofTask(const KWTaskModel &task)
{
    return {KWTaskDateTimeReminderModel::ofTask(task), task.timeZone, task.isFloating};
}

Result<void> TaskSchedule::check() const
{
    if (!dates.startDateTime) {
        const bool isPlain = !dates.endDateTime && dates.repeatRule.isEmpty() && dates.alarmTriggers.empty();
        return isPlain ? Result<void>{} : Error{storeText("Without a date nothing repeats or reminds.")};
    }
    if (dates.endDateTime && dates.endDateTime->date < dates.startDateTime->date)
        return Error{storeText("A task cannot end before it starts.")};
    if (dates.repeatRule.isEmpty()) return {};
    const auto rule = CXRecurrenceRule::parse(dates.repeatRule);
    if (!rule) return rule.error();
    if (rule->mostOccurrencesOnADay() > mostOccurrencesOnADay)
        return Error{storeText("A task cannot repeat more often than every quarter of an hour.")};
    return {};
}

bool TaskSchedule::hasDatesOf(const TaskSchedule &other) const
{
    return dates.startDateTime == other.dates.startDateTime && dates.endDateTime == other.dates.endDateTime &&
           timeZone == other.timeZone && isFloating == other.isFloating;
}

bool TaskSchedule::hasRepeatOf(const TaskSchedule &other) const
{
    return dates.repeatRule == other.dates.repeatRule && dates.repeatFrom == other.dates.repeatFrom;
}

void TaskSchedule::applyTo(KWTask &task, const TaskSchedule &shown) const
{
    KWTaskModel chosen = task.model();
    dates.applyTo(chosen, timeZone);
    KWTaskModel changed = task.model();
    if (!hasDatesOf(shown)) {
        for (const auto date : {&KWTaskModel::startDate, &KWTaskModel::endDate})
            changed.*date = chosen.*date;
        changed.isAllDay = chosen.isAllDay;
        changed.timeZone = chosen.timeZone;
        changed.isFloating = isFloating;
        changed.snoozedRemindDate.reset();
    }
    if (!hasRepeatOf(shown)) {
        changed.repeatRule = chosen.repeatRule;
        changed.repeatFrom = chosen.repeatFrom;
        changed.exDates.clear();
    }
    if (dates.alarmTriggers != shown.dates.alarmTriggers) changed.reminders = chosen.reminders;
    task.assign(changed);
}
