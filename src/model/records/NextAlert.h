#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWHabitModel.h"
#include "model/records/KWTaskModel.h"

// When tasks, checklist items and habits remind; docs/reminders.md has the rules. Any thread.

/// The first alert of the task after a moment: one of its reminders, or the snoozed one. Those of an
/// all-day task count from its day in `zone`, those of a task with a time from its start, in its own zone
/// unless it is floating. Nothing for a task without a date.
std::optional<Instant> nextAlert(const KWTaskModel &task, Instant after, const CXTimeZone &zone);
/// Whether one of them comes at that moment.
bool isAlert(const KWTaskModel &task, Instant moment, const CXTimeZone &zone);
/// An item with a time reminds when that comes, an all-day one only when it was snoozed.
std::optional<Instant> nextAlert(const KWChecklistItemModel &item, Instant after);

/// A habit reminds each day at its times on the wall clock of `zone`, whether it is due or not: who tells of
/// it looks at the day.
std::optional<Instant> nextAlert(const KWHabitModel &habit, Instant after, const CXTimeZone &zone);
/// The latest of these moments up to `now`.
std::optional<Instant> lastAlert(const KWHabitModel &habit, Instant now, const CXTimeZone &zone);

/// Whether a version that is to be saved has to get its next alert: what it depends on is another than
/// in `stored`, or the record came back to life. A new record that brings its alert along keeps it.
bool needsNewAlert(const std::optional<KWTaskModel> &stored, const KWTaskModel &task);
bool needsNewAlert(const std::optional<KWChecklistItemModel> &stored, const KWChecklistItemModel &item);
bool needsNewAlert(const std::optional<KWHabitModel> &stored, const KWHabitModel &habit);

/// Whether nothing but the next alert is another one.
template <class Twin>
bool differsInAlertAlone(std::optional<Twin> stored, const Twin &version)
{
    if (!stored || stored->remindTime == version.remindTime) return false;
    stored->remindTime = version.remindTime;
    return *stored == version;
}
