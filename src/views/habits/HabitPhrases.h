#pragma once

#include "model/records/HabitDay.h"

#include <QLocale>
#include <QString>

struct HabitRow;
struct HabitProgress;
struct KWHabitModel;

/// What is written and said of habits and their days. Main thread.
namespace HabitPhrases {

/// "done", "5 of 8 cups", "not achieved", "skipped", "not due", "open"; what a day looks like, in words.
QString state(const HabitDay &day, const KWHabitModel &habit, const QLocale &locale);
/// "Wednesday 18 November: done", with a note where there is one.
QString spokenDay(const HabitDay &day, const KWHabitModel &habit, const QLocale &locale);

/// The line below the name: "Every day, 8 cups", "Every day, 12 day streak".
QString summary(const KWHabitModel &habit, std::chrono::weekday firstWeekday, const QLocale &locale);
/// "12 day streak", "1 week streak"; empty without one.
QString streak(const KWHabitModel &habit, const QLocale &locale);
/// In a list of tasks: "5 of 8 cups" while an amount is to be reached, else the streak.
QString inRow(const HabitProgress &progress, bool isOpen, const QLocale &locale);
/// Whether its streaks are weeks.
bool countsWeeks(const KWHabitModel &habit);

/// "Water the plants", quoted and cut to fit into a message.
QString quoted(const QString &name);

} // namespace HabitPhrases
