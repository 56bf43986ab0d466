#pragma once

#include "corvexkit/Result.h"
#include "model/records/HabitFrequency.h"

#include <QLocale>

struct KWHabitModel;

/// Habits in words, and what is typed about them. Main thread.
namespace HabitWording {

/// "Every day", "Mon, Wed, Fri", "5 days per week", "Every 3 Days". Weekdays from the account's first one.
QString frequency(const HabitFrequency &frequency, std::chrono::weekday firstWeekday, const QLocale &locale);
/// "Every day", "5 days per week".
QString daysPerWeek(int days);

/// "8", "0.5", "1,234.5" in the way of the locale: no more decimals than there are.
QString amount(double amount, const QLocale &locale);
/// "8 cups"; without a unit the number alone.
QString amountWithUnit(double amount, const QString &unit, const QLocale &locale);
/// An amount as typed, in the locale's notation, or as "1.5" where that means the same everywhere. Fails with
/// a sentence for what is no number, below 0 or too large.
Result<double> toAmount(const QString &typed, const QLocale &locale);

/// The name of a section in the language of the interface, where it is one that every account begins with.
QString sectionName(const QString &storedName);

} // namespace HabitWording
