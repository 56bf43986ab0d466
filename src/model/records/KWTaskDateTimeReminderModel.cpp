#include "model/records/KWTaskDateTimeReminderModel.h"

#include "corvexkit/time/CXClock.h"
#include "model/records/KWTaskModel.h"
#include "model/settings/KWTaskDefaultConfiguration.h"

void KWTaskDateTimeReminderModel::presetDefaultDateIfNeeded(const KWTaskDefaultConfiguration &defaults,
                                                            const CXClock &clock)
{
    if (startDateTime || !defaults.dateOffset) return;
    const CXTimeZone zone = clock.zone();
    startDateTime =
        KWDateTime::dateTimeWithDate(zone.startOfDay(clock.today() + *defaults.dateOffset), false);
}

bool KWTaskDateTimeReminderModel::presetDefaultRemindersIfNeeded(const KWTaskDefaultConfiguration &defaults)
{
    if (!startDateTime || !alarmTriggers.empty()) return false;
    alarmTriggers = isAllDay() ? defaults.allDayReminders : defaults.reminders;
    return true;
}

void KWTaskDateTimeReminderModel::applyTo(KWTaskModel &task, const QString &timeZone) const
{
    const auto dateOf = [](const std::optional<KWDateTime> &dateTime) {
        return dateTime ? std::optional{dateTime->date} : std::nullopt;
    };
    task.startDate = dateOf(startDateTime);
    task.endDate = dateOf(endDateTime);
    task.isAllDay = isAllDay();
    task.timeZone = startDateTime ? timeZone : QString{};
    task.repeatRule = repeatRule;
    task.repeatFrom = repeatFrom;
    task.reminders.clear();
    for (const CXAlarmTrigger &each : alarmTriggers)
        task.reminders.append(each.representation());
}

KWTaskDateTimeReminderModel KWTaskDateTimeReminderModel::ofTask(const KWTaskModel &task)
{
    KWTaskDateTimeReminderModel model;
    if (task.startDate) model.startDateTime = KWDateTime::dateTimeWithDate(*task.startDate, !task.isAllDay);
    if (task.endDate) model.endDateTime = KWDateTime::dateTimeWithDate(*task.endDate, !task.isAllDay);
    model.repeatRule = task.repeatRule;
    model.repeatFrom = task.repeatFrom;
    for (const QString &each : task.reminders)
        model.alarmTriggers.insert(CXAlarmTrigger::triggerWithRepresentation(each, task.isAllDay));
    return model;
}
