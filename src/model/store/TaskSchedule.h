#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWTaskDateTimeReminderModel.h"

class KWTask;

/// When a task takes place, repeats and reminds, as one value to choose and to save.
struct TaskSchedule {
    /// Of one task: each quarter of an hour.
    static constexpr int mostOccurrencesOnADay = 96;

    KWTaskDateTimeReminderModel dates;
    QString timeZone; ///< in which the dates are set; empty without a date
    bool isFloating = false;

    static TaskSchedule ofTask(const KWTaskModel &task);

    /// Why nothing can be scheduled so: it ends before it starts, the rule cannot be read or yields too much,
    /// or it repeats or reminds without a date.
    Result<void> check() const;

    /// Gives the task what is chosen here and was not `shown`: dates, repeat and reminders each as a whole.
    /// What was changed elsewhere since it was shown stays. New dates drop a snoozed reminder, a new rule
    /// the occurrences that were left out.
    void applyTo(KWTask &task, const TaskSchedule &shown) const;

    bool operator==(const TaskSchedule &) const = default;

private:
    bool hasDatesOf(const TaskSchedule &other) const;
    bool hasRepeatOf(const TaskSchedule &other) const;
};
