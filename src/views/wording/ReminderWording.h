#pragma once

#include "corvexkit/alarm/CXAlarmTrigger.h"

#include <set>

/// Reminders in words. Main thread.
namespace ReminderWording {

/// "On time", "10 minutes before", "The day before at 09:00".
QString trigger(const CXAlarmTrigger &trigger);
/// The trigger itself of one, how many there are of several, "None".
QString triggers(const std::set<CXAlarmTrigger> &triggers);

/// What a person types: a number and a unit, "20 min", "2 h", "3 days", "1 w". Days and weeks of an
/// all-day task remind at 09:00. Nothing for any other text.
std::optional<CXAlarmTrigger> read(const QString &typed, bool isAllDay);

} // namespace ReminderWording
