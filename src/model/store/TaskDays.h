#pragma once

#include "corvexkit/time/Instant.h"

class KWChecklistItem;
class KWTask;

/// Moves the task to that day. A time of day and a length stay; a task without a date is all-day then.
/// A snoozed reminder is dropped.
void moveToDay(KWTask &task, Day day);

void moveToDay(KWChecklistItem &item, Day day);

/// Takes the dates away, and with them what is counted from them: repeat and reminders.
void clearDates(KWTask &task);
void clearDates(KWChecklistItem &item);
