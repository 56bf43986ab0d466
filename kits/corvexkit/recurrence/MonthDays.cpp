#include "corvexkit/recurrence/MonthDays.h"

using namespace std::chrono;

namespace {

constexpr std::uint64_t bitOf(int index) { return std::uint64_t{1} << index; }

} // namespace

MonthDays::MonthDays(year_month month)
    : m_first{month / 1}
    , m_length{int(unsigned{year_month_day_last{month / last}.day()})}
    , m_firstWeekday{int(weekday{m_first}.c_encoding())}
{
}

std::uint64_t MonthDays::numbered(const CXRecurrenceRule &rule) const
{
    using enum CXRecurrenceRule::Skip;
    if (rule.byMonthDay.isEmpty()) return whole();
    const std::uint64_t fromStart = rule.byMonthDay.fromStart();
    std::uint64_t result = fromStart & whole();
    if (rule.skip != Omit && fromStart > whole())
        result |= bitOf(rule.skip == Forward ? m_length + 1 : m_length);
    forEachBit(rule.byMonthDay.fromEnd(), [&](int place) {
        if (place <= m_length)
            result |= bitOf(m_length + 1 - place);
        else if (rule.skip != Omit)
            result |= bitOf(rule.skip == Forward ? 1 : 0);
    });
    return result;
}

std::uint64_t MonthDays::onWeekdays(const WeekdaySet &weekdays) const
{
    std::uint64_t result = 0;
    weekdays.every().forEach([&](int weekday) { result |= every(weekday); });
    weekdays.withOrdinals().forEach([&](int weekday) {
        const std::uint64_t days = every(weekday) & whole();
        const int firstDay = std::countr_zero(days);
        const int lastDay = std::bit_width(days) - 1;
        weekdays.ordinals(weekday).forEach([&](int ordinal) {
            const int day = ordinal > 0 ? firstDay + 7 * (ordinal - 1) : lastDay + 7 * (ordinal + 1);
            if (day >= firstDay && day <= lastDay) result |= bitOf(day);
        });
    });
    return result;
}

std::uint64_t MonthDays::every(int weekday) const
{
    constexpr std::uint64_t weekly = bitOf(0) | bitOf(7) | bitOf(14) | bitOf(21) | bitOf(28);
    const int offset = (weekday - m_firstWeekday + 8) % 7; // bit 0 is the day before the first
    return weekly << offset;
}
