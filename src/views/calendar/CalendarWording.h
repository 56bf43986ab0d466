#pragma once

#include "calendar/CalendarPage.h"

#include <QLocale>
#include <QString>

struct CalendarItem;

/// The calendar in words. Main thread.
namespace CalendarWording {

/// "November 2026"; of a week in two months "Nov – Dec 2026"; of a day "Saturday 21 November 2026".
QString title(const CalendarPage &page, const QLocale &locale);
/// "Nov 2026", "21 Nov 2026".
QString shortTitle(const CalendarPage &page, const QLocale &locale);
/// "16:00"; of more than a moment "16:00 – 17:00"; "All day"; over several days with the days.
QString time(const CalendarItem &item, const QLocale &locale);
/// All that a screen reader says of an item: "Weekly plan, Monday 16 November, 16:00 to 17:00, repeats"; of a
/// focus session "Focus, Weekly plan, 09:30 to 09:55".
QString spoken(const CalendarItem &item, const QLocale &locale);
/// The number of the week that the day is in, where weeks begin on `firstWeekday`: what ISO 8601 counts for
/// most of its days.
int weekNumber(Day day, std::chrono::weekday firstWeekday);

} // namespace CalendarWording
