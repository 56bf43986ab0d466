#include "views/wording/DateWording.h"

#include "model/settings/ClockFormat.h"
#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"

using namespace std::chrono;

QString DateWording::timeOfDay(LocalTime time, const QLocale &locale)
{
    return ClockFormat::timeOfDay(time - floor<days>(time), locale);
}

QString DateWording::weekdayAndDay(Day day, Day today, const QLocale &locale)
{
    const bool sameYear = dateOf(day).year() == dateOf(today).year();
    const QString weekday = locale.dayName(dateOf(day).dayOfWeek(), QLocale::ShortFormat);
    return weekday + u' ' +
           (sameYear ? DayText::dayAndMonth(day, locale) : DayText::dayMonthAndYear(day, locale));
}

QString DateWording::fullDay(Day day, const QLocale &locale)
{
    const QString weekday = locale.dayName(dateOf(day).dayOfWeek(), QLocale::LongFormat);
    return weekday + u' ' + DayText::dayAndFullMonth(day, locale);
}

QString DateWording::relativeDay(Day day, Day today, const QLocale &locale, PastWeekdays pastWeekdays)
{
    const auto distance = (day - today).count();
    if (distance == 0) return KWLocalizedString("Today");
    if (distance == 1) return KWLocalizedString("Tomorrow");
    if (distance == -1) return KWLocalizedString("Yesterday");
    const bool isNear = distance > 0 ? distance < 7 : distance > -7 && pastWeekdays == PastWeekdays::Named;
    if (isNear) return locale.dayName(dateOf(day).dayOfWeek(), QLocale::ShortFormat);
    return dateOf(day).year() == dateOf(today).year() ? DayText::dayAndMonth(day, locale)
                                                      : DayText::dayMonthAndYear(day, locale);
}
