#include "corvexkit/recurrence/YearlyPeriods.h"

#include "corvexkit/recurrence/MonthDays.h"
#include "corvexkit/recurrence/ShortPeriods.h"

using namespace std::chrono;

namespace {

// A calendar year with the day before and the day after, which SKIP may choose: bit n is its day n.
constexpr int yearSize = 368;

int daysIn(year year) { return year.is_leap() ? 366 : 365; }

void resetToYear(DaySet &set, year year) { set.reset(Day{year / January / 1} - days{1}, yearSize); }

} // namespace

YearlyPeriods::YearlyPeriods(const CXRecurrenceRule &rule, Day start)
    : m_rule{rule}
    , m_filter{rule}
    , m_firstYear{countsWeeks() ? yearOfWeeks(start) : year_month_day{start}.year()}
{
}

std::int64_t YearlyPeriods::lastBefore(Day day) const
{
    // Years of weeks begin and end some days beside the calendar's.
    const int years = int{year_month_day{day}.year()} - 2 - int{m_firstYear};
    return std::max(0, years / m_rule.interval);
}

Day YearlyPeriods::begin(std::int64_t index) const
{
    const year year = yearAt(index);
    return countsWeeks() ? firstWeek(year) : Day{year / January / 1} - std::chrono::days{1};
}

void YearlyPeriods::days(std::int64_t index, DaySet &set) const
{
    const year year = yearAt(index);
    if (countsWeeks()) return insertWeeks(year, set);
    DaySet other;
    insertMonths(year, set);
    if (!m_rule.byYearDay.isEmpty()) {
        insertYearDays(year, other);
        if (m_rule.byMonth.isEmpty() && m_rule.byMonthDay.isEmpty())
            set = other;
        else
            set.intersect(other);
    }
    if (!m_rule.byDay.isEmpty() && m_rule.byMonth.isEmpty()) {
        insertWeekdays(year, other);
        set.intersect(other);
    }
}

year YearlyPeriods::yearAt(std::int64_t index) const
{
    // The year 10001 stands for all that follow: none is asked for.
    return year{int(std::min<std::int64_t>(10'001, int{m_firstYear} + index * m_rule.interval))};
}

// ISO 8601: the first week is the one that holds 4 January.
Day YearlyPeriods::firstWeek(year year) const { return weekOf(Day{year / January / 4}, *m_rule.weekStart); }

year YearlyPeriods::yearOfWeeks(Day day) const
{
    const year year = year_month_day{day}.year();
    if (day < firstWeek(year)) return year - years{1};
    return day < firstWeek(year + years{1}) ? year : year + years{1};
}

void YearlyPeriods::insertWeeks(year year, DaySet &set) const
{
    const Day begin = firstWeek(year);
    const int weeks = int((firstWeek(year + years{1}) - begin).count()) / 7;
    set.reset(begin, weeks * 7);
    const std::uint64_t wholeWeek = 0x7f;
    const std::uint64_t days =
        m_rule.byDay.isEmpty() ? wholeWeek : daysOfWeek(m_rule.byDay.every(), *m_rule.weekStart);
    m_rule.byWeekNo.forEach([&](int number) {
        const int week = number > 0 ? number : weeks + 1 + number;
        if (week >= 1 && week <= weeks) set.insertBits((week - 1) * 7, days);
    });
    set.filter([this](Day day) { return m_filter.allows(day); });
}

// BYMONTH and BYMONTHDAY; BYDAY too where it counts within months.
void YearlyPeriods::insertMonths(year year, DaySet &set) const
{
    resetToYear(set, year);
    constexpr std::uint64_t allMonths = 0b1'1111'1111'1110;
    const bool namesMonths = !m_rule.byMonth.isEmpty();
    forEachBit(namesMonths ? m_rule.byMonth.bits() : allMonths, [&](int number) {
        const MonthDays month{year / number};
        std::uint64_t bits = month.numbered(m_rule);
        if (namesMonths && !m_rule.byDay.isEmpty()) bits &= month.onWeekdays(m_rule.byDay);
        set.insertBits(int((month.first() - set.first()).count()) - 1, bits);
    });
}

void YearlyPeriods::insertYearDays(year year, DaySet &set) const
{
    using enum CXRecurrenceRule::Skip;
    resetToYear(set, year);
    const int length = daysIn(year);
    m_rule.byYearDay.forEach([&](int number) {
        const int day = number > 0 ? number : length + 1 + number;
        if (day >= 1 && day <= length)
            set.insert(day);
        else if (m_rule.skip != Omit) // day 366 or -366 of a year of 365 days
            set.insert(m_rule.skip == Forward ? std::max(day, 1) : std::min(day, length));
    });
}

// BYDAY, its ordinals counted within the year.
void YearlyPeriods::insertWeekdays(year year, DaySet &set) const
{
    resetToYear(set, year);
    const int length = daysIn(year);
    for (int weekday = 0; weekday < 7; ++weekday) {
        const int beforeYear = int(std::chrono::weekday{set.first()}.c_encoding());
        const int firstDay = (weekday - beforeYear + 6) % 7 + 1;
        const int lastDay = length - (length - firstDay) % 7;
        if (m_rule.byDay.every().contains(weekday))
            for (int day = firstDay % 7; day < yearSize; day += 7)
                set.insert(day);
        m_rule.byDay.ordinals(weekday).forEach([&](int ordinal) {
            const int day = ordinal > 0 ? firstDay + 7 * (ordinal - 1) : lastDay + 7 * (ordinal + 1);
            if (day >= firstDay && day <= lastDay) set.insert(day);
        });
    }
}
