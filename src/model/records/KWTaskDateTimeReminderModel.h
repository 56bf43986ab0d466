#pragma once

#include "corvexkit/alarm/CXAlarmTrigger.h"
#include "model/records/KWConstants.h"
#include "model/records/KWDateTime.h"

#include <QString>

#include <optional>
#include <set>

class CXClock;
struct KWTaskDefaultConfiguration;
struct KWTaskModel;

/// The dates, repeat and reminders of a task being created or edited. All-day is a start without a
/// time; the end of an all-day range is exclusive.
struct KWTaskDateTimeReminderModel {
    std::optional<KWDateTime> startDateTime;
    std::optional<KWDateTime> endDateTime;
    QString repeatRule;
    CXRecurrenceFrom repeatFrom = CXRecurrenceFromDefault;
    std::set<CXAlarmTrigger> alarmTriggers;

    bool isAllDay() const { return startDateTime && !startDateTime->hasTime; }

    /// Gives a model without a start the date the user has configured for new tasks, if any.
    void presetDefaultDateIfNeeded(const KWTaskDefaultConfiguration &defaults, const CXClock &clock);
    /// Gives a model with a start and no reminders the user's default ones. Answers whether the
    /// defaults apply, also when there are none to give.
    bool presetDefaultRemindersIfNeeded(const KWTaskDefaultConfiguration &defaults);

    /// Puts the dates, repeat and reminders into a task, with the zone they were set in.
    void applyTo(KWTaskModel &task, const QString &timeZone) const;
    static KWTaskDateTimeReminderModel ofTask(const KWTaskModel &task);

    bool operator==(const KWTaskDateTimeReminderModel &) const = default;
};
