#pragma once

#include "corvexkit/alarm/CXAlarmTrigger.h"

#include <set>

/// Reminders in words. Main thread.
namespace ReminderWording {

/// "On time", "10 minutes before", "The day before at 09:00".
QString trigger(const CXAlarmTrigger &trigger);
/// The trigger itself of one, how many there are of several, "None".
QString triggers(const std::set<CXAlarmTrigger> &triggers);

} // namespace ReminderWording
