#include "model/text/RuleDayWording.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/ListWording.h"

using namespace std::chrono;

namespace {

using Frequency = CXRecurrenceRule::Frequency;

template <class Set>
QStringList ordinals(const Set &set)
{
    QStringList texts;
    set.forEach([&](int ordinal) { texts.append(ListWording::ordinal(ordinal)); });
    return texts;
}

template <class Set>
bool countsFromEnd(const Set &set)
{
    bool result = false;
    set.forEach([&](int ordinal) { result |= ordinal < 0; });
    return result;
}

} // namespace

QString RuleDayWording::addedTo(const QString &frequency)
{
    m_text = frequency;
    m_hasDays = m_rule.frequency < Frequency::Weekly; // below weeks each part limits
    if (!addDayOfYear()) {
        addMonths();
        addWeeks();
        addYearDays();
        addMonthDays();
    }
    addWeekdays();
    return m_text;
}

void RuleDayWording::add(const char *pattern, const QString &value)
{
    m_text = KWLocalizedString(pattern).arg(m_text, value);
}

bool RuleDayWording::takesMaking()
{
    const bool makes = !m_hasDays;
    m_hasDays = true;
    return makes;
}

// "Every year on 3 May".
bool RuleDayWording::addDayOfYear()
{
    const std::uint64_t months = m_rule.byMonth.bits(), days = m_rule.byMonthDay.fromStart();
    const bool isOneDay =
        std::popcount(months) == 1 && std::popcount(days) == 1 && !m_rule.byMonthDay.fromEnd();
    const bool isAlone = m_rule.byWeekNo.isEmpty() && m_rule.byYearDay.isEmpty();
    if (m_rule.frequency != Frequency::Yearly || !isOneDay || !isAlone) return false;
    const year_month_day inLeapYear{2028y, month{unsigned(std::countr_zero(months))},
                                    day{unsigned(std::countr_zero(days))}};
    if (!inLeapYear.ok()) return false;
    add("%1 on %2", DayText::dayAndMonth(Day{inLeapYear}, m_locale));
    return takesMaking();
}

void RuleDayWording::addMonths()
{
    if (m_rule.byMonth.isEmpty()) return;
    QStringList months;
    m_rule.byMonth.forEach([&](int month) { months.append(m_locale.standaloneMonthName(month)); });
    add("%1 in %2", ListWording::allOf(months));
}

void RuleDayWording::addWeeks()
{
    if (m_rule.byWeekNo.isEmpty()) return;
    add("%1 in the %2 week of the year", ListWording::allOf(ordinals(m_rule.byWeekNo)));
}

void RuleDayWording::addYearDays()
{
    if (m_rule.byYearDay.isEmpty()) return;
    const QStringList days = ordinals(m_rule.byYearDay);
    if (takesMaking())
        add("%1 on the %2 day of the year", ListWording::allOf(days));
    else
        add("%1 if it is the %2 day of the year", ListWording::anyOf(days));
}

void RuleDayWording::addMonthDays()
{
    if (m_rule.byMonthDay.isEmpty()) return;
    const QStringList days = ordinals(m_rule.byMonthDay);
    const bool isEveryMonth = m_rule.frequency == Frequency::Yearly && m_rule.byMonth.isEmpty();
    if (!takesMaking())
        add("%1 if it is the %2 day of the month", ListWording::anyOf(days));
    else if (isEveryMonth && m_rule.byWeekNo.isEmpty())
        add("%1 on the %2 day of every month", ListWording::allOf(days));
    else if (countsFromEnd(m_rule.byMonthDay))
        add("%1 on the %2 day", ListWording::allOf(days));
    else
        add("%1 on the %2", ListWording::allOf(days));
}

void RuleDayWording::addWeekdays()
{
    if (m_rule.byDay.isEmpty()) return;
    if (isWorkdays()) return addWorkdays();
    const QStringList numbered = numberedWeekdays();
    const bool isOfWeeks = m_rule.frequency == Frequency::Weekly || !m_rule.byWeekNo.isEmpty();
    if (!takesMaking())
        add("%1 if it is %2", ListWording::anyOf(numbered + plainWeekdays("%1")));
    else
        add("%1 on %2", ListWording::allOf(numbered + plainWeekdays(isOfWeeks ? "%1" : "every %1")));
}

// Monday to Friday are said as such.
void RuleDayWording::addWorkdays()
{
    const bool isEveryDay = m_rule.frequency == Frequency::Daily && m_rule.interval == 1;
    const bool isOfWeeks = m_rule.frequency == Frequency::Weekly;
    const QString days = KWLocalizedString("%1 to %2").arg(weekdayName(1), weekdayName(5));
    if (isEveryDay || isOfWeeks)
        add("%1 from %2", days);
    else if (takesMaking())
        add("%1 on every day from %2", days);
    else
        add("%1 if it is a day from %2", days);
}

bool RuleDayWording::isWorkdays() const
{
    constexpr std::uint64_t mondayToFriday = 0b011'1110;
    return m_rule.byDay.every().bits() == mondayToFriday && !m_rule.byDay.hasOrdinals();
}

// In the order of toIcal(): from Monday on.
QStringList RuleDayWording::plainWeekdays(const char *pattern) const
{
    QStringList days;
    for (int day = 1; day <= 7; ++day)
        if (m_rule.byDay.every().contains(day % 7))
            days.append(KWLocalizedString(pattern).arg(weekdayName(day)));
    return days;
}

QStringList RuleDayWording::numberedWeekdays() const
{
    const bool isOfYear = m_rule.frequency == Frequency::Yearly && m_rule.byMonth.isEmpty();
    QStringList days;
    for (int day = 1; day <= 7; ++day) {
        if (!m_rule.byDay.withOrdinals().contains(day % 7)) continue;
        m_rule.byDay.ordinals(day % 7).forEach([&](int place) {
            days.append(
                (isOfYear ? KWLocalizedString("the %1 %2 of the year") : KWLocalizedString("the %1 %2"))
                    .arg(ListWording::ordinal(place), weekdayName(day)));
        });
    }
    return days;
}

QString RuleDayWording::weekdayName(int weekday) const { return m_locale.standaloneDayName(weekday); }
