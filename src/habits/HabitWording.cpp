#include "habits/HabitWording.h"

#include "corvexkit/recurrence/NumberSet.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/KWHabitModel.h"
#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;

namespace {

QString weekdays(const NumberSet<0, 6> &weekdays, std::chrono::weekday first, const QLocale &locale)
{
    QStringList names;
    for (int i = 0; i < 7; ++i) {
        const std::chrono::weekday each = first + std::chrono::days{i};
        if (weekdays.contains(int(each.c_encoding())))
            names.append(locale.standaloneDayName(int(each.iso_encoding()), QLocale::ShortFormat));
    }
    return names.join(u", "_s);
}

constexpr std::uint64_t allWeekdays = 0x7f;

// Grouping signs only where the locale puts them: "1,5" is not 15.
std::optional<double> numberIn(const QString &text, QLocale locale)
{
    bool isNumber = false;
    locale.setNumberOptions(QLocale::DefaultNumberOptions);
    const double value = locale.toDouble(text, &isNumber);
    return isNumber ? std::optional{value} : std::nullopt;
}

} // namespace

QString HabitWording::frequency(const HabitFrequency &frequency, std::chrono::weekday firstWeekday,
                                const QLocale &locale)
{
    switch (frequency.kind) {
    case HabitFrequency::Kind::Weekly:
        return daysPerWeek(frequency.timesInWeekly);
    case HabitFrequency::Kind::Repeat:
        return KWLocalizedString("Every %1 Days").arg(locale.toString(frequency.interval));
    case HabitFrequency::Kind::Daily:
        break;
    }
    if (frequency.weekdays.isEmpty() || frequency.weekdays.bits() == allWeekdays)
        return KWLocalizedString("Every day");
    return weekdays(frequency.weekdays, firstWeekday, locale);
}

QString HabitWording::daysPerWeek(int days)
{
    if (days == 7) return KWLocalizedString("Every day");
    if (days == 1) return KWLocalizedString("1 day per week");
    return KWLocalizedString("%ld days per week").replace(u"%ld"_s, QLocale{}.toString(days));
}

QString HabitWording::amount(double amount, const QLocale &locale)
{
    return locale.toString(KWHabitUtils::withoutRoundingErrors(amount), 'f', QLocale::FloatingPointShortest);
}

QString HabitWording::amountWithUnit(double amount, const QString &unit, const QLocale &locale)
{
    const QString number = HabitWording::amount(amount, locale);
    return unit.isEmpty() ? number : KWLocalizedString("%1 %2").arg(number, unit);
}

Result<double> HabitWording::toAmount(const QString &typed, const QLocale &locale)
{
    const QString text = typed.trimmed();
    if (text.isEmpty()) return Error{KWLocalizedString("Type an amount, 0 for none.")};
    std::optional<double> value = numberIn(text, locale);
    if (!value) value = numberIn(text, QLocale::c());
    if (!value) return Error{KWLocalizedString("“%1” is no number.").arg(text)};
    const Result<void> sound = KWHabitCheckHelper::checkedAmount(*value);
    if (!sound) return sound.error();
    return *value;
}

QString HabitWording::sectionName(const QString &storedName)
{
    if (storedName == K_HABIT_SECTION_ID_OTHERS) return KWLocalizedString("Others");
    for (const char *each : {K_HABIT_SECTION_NAME_DEFAULT_MORNING, K_HABIT_SECTION_NAME_DEFAULT_AFTERNOON,
                             K_HABIT_SECTION_NAME_DEFAULT_NIGHT})
        if (storedName == QLatin1StringView{each}) return KWLocalizedString(each);
    return storedName;
}
