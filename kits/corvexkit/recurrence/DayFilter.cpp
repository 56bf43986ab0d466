#include "corvexkit/recurrence/DayFilter.h"

using namespace std::chrono;

bool DayFilter::allowsDate(Day day) const
{
    const year_month_day date{day};
    if (!m_rule.byMonth.isEmpty() && !m_rule.byMonth.contains(int(unsigned{date.month()}))) return false;
    if (!m_rule.byMonthDay.isEmpty()) {
        const int number = int(unsigned{date.day()});
        const int length = int(unsigned{year_month_day_last{date.year() / date.month() / last}.day()});
        if (!m_rule.byMonthDay.contains(number) && !m_rule.byMonthDay.contains(number - length - 1))
            return false;
    }
    if (!m_hasYearDays) return true;
    const int number = int((day - Day{date.year() / January / 1}).count()) + 1;
    const int length = date.year().is_leap() ? 366 : 365;
    return m_rule.byYearDay.contains(number) || m_rule.byYearDay.contains(number - length - 1);
}
