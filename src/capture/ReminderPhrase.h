#pragma once

#include "corvexkit/alarm/CXAlarmTrigger.h"

#include <QString>

#include <set>

/// Whether the text itself asks for a reminder: "remind me", in any case, or "提醒我".
inline bool namesReminder(QStringView text)
{
    return text.contains(QLatin1StringView{"remind me"}, Qt::CaseInsensitive) || text.contains(u"提醒我");
}

/// The reminders that a typed text means, in the words of a title: "20 min", "3 days before", "1 day and 1
/// hour before", "提前10分钟". Days and weeks of an all-day task remind at 09:00, and nothing smaller is
/// meant there. None for any other text.
std::set<CXAlarmTrigger> remindersIn(const QString &typed, bool isAllDay);
