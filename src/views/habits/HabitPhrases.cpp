#include "views/habits/HabitPhrases.h"

#include "habits/HabitWording.h"
#include "model/records/KWHabitModel.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/KWTaskListItemModel.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QFontMetrics>

using namespace Qt::StringLiterals;

namespace {

QString amountOfGoal(double amount, double goal, const QString &unit, const QLocale &locale)
{
    return KWLocalizedString("%1 of %2")
        .arg(HabitWording::amount(amount, locale), HabitWording::amountWithUnit(goal, unit, locale));
}

QString streakOf(int current, bool isOfWeeks, const QLocale &locale)
{
    if (current <= 0) return {};
    return (isOfWeeks ? KWLocalizedString("%1 week streak") : KWLocalizedString("%1 day streak"))
        .arg(locale.toString(current));
}

} // namespace

QString HabitPhrases::state(const HabitDay &day, const KWHabitModel &habit, const QLocale &locale)
{
    const auto amounts = [&] { return amountOfGoal(day.value, day.goal, habit.unit, locale); };
    switch (day.state) {
    case HabitDayState::Done:
        return habit.isRealType ? KWLocalizedString("done, %1").arg(amounts()) : KWLocalizedString("done");
    case HabitDayState::UnAchieved:
        return KWLocalizedString("not achieved");
    case HabitDayState::Skipped:
        return KWLocalizedString("skipped");
    case HabitDayState::Open:
        break;
    }
    if (day.value > 0) return amounts();
    if (day.isToCome) return KWLocalizedString("to come");
    return day.isDue ? KWLocalizedString("open") : KWLocalizedString("not due");
}

QString HabitPhrases::spokenDay(const HabitDay &day, const KWHabitModel &habit, const QLocale &locale)
{
    const QString words =
        KWLocalizedString("%1: %2").arg(DateWording::fullDay(day.day, locale), state(day, habit, locale));
    return day.hasNote ? KWLocalizedString("%1, with a note").arg(words) : words;
}

QString HabitPhrases::summary(const KWHabitModel &habit, std::chrono::weekday firstWeekday,
                              const QLocale &locale)
{
    QStringList parts{
        HabitWording::frequency(HabitFrequency::ofRule(habit.repeatRule), firstWeekday, locale)};
    if (habit.isRealType) parts << HabitWording::amountWithUnit(habit.goal, habit.unit, locale);
    if (const QString kept = streak(habit, locale); !kept.isEmpty()) parts << kept;
    return parts.join(u", "_s);
}

QString HabitPhrases::streak(const KWHabitModel &habit, const QLocale &locale)
{
    return streakOf(habit.currentStreak, countsWeeks(habit), locale);
}

QString HabitPhrases::inRow(const HabitProgress &progress, bool isOpen, const QLocale &locale)
{
    if (progress.isRealType && isOpen)
        return amountOfGoal(progress.value, progress.goal, progress.unit, locale);
    return streakOf(progress.currentStreak, progress.countsWeeks, locale);
}

bool HabitPhrases::countsWeeks(const KWHabitModel &habit)
{
    return HabitFrequency::ofRule(habit.repeatRule).kind == HabitFrequency::Kind::Weekly;
}

QString HabitPhrases::quoted(const QString &name)
{
    constexpr int widest = 220;
    const QString cut = QFontMetrics{Fonts::font(Fonts::Role::Body)}.elidedText(name, Qt::ElideRight,
                                                                                Metrics::scaled(widest));
    return KWLocalizedString("“%1”").arg(cut);
}
