#pragma once

#include "corvexkit/time/Instant.h"

#include <QDate>
#include <QLocale>
#include <QString>

/// A day as Qt's widgets and locales take it.
inline QDate dateOf(Day day)
{
    const std::chrono::year_month_day date{day};
    return {int(date.year()), int(unsigned(date.month())), int(unsigned(date.day()))};
}

/// Days in the order of the locale's long date format. Any thread.
namespace DayText {

/// "24 Nov" or "Nov 24".
QString dayAndMonth(Day day, const QLocale &locale);
/// "24 November".
QString dayAndFullMonth(Day day, const QLocale &locale);
/// "24 Nov 2031".
QString dayMonthAndYear(Day day, const QLocale &locale);
/// "24 November 2031".
QString dayFullMonthAndYear(Day day, const QLocale &locale);

} // namespace DayText
