#include "DayByDay.h"

using namespace std::chrono;

namespace {

using Frequency = CXRecurrenceRule::Frequency;

class DayByDay {
public:
    DayByDay(const CXRecurrenceRule &rule, LocalTime start)
        : m_rule{rule}, m_start{start}, m_startDay{floor<days>(start)}, m_startDate{m_startDay}
    {
    }

    std::vector<LocalTime> readTo(Day last)
    {
        m_times.push_back(m_start);
        const int firstPeriod = periodOf(m_startDay);
        int period = firstPeriod;
        // Whole periods, so that their last occurrences are what they are.
        for (Day day = m_startDay - days{371}; day <= last + days{371}; day += days{1}) {
            if (periodOf(day) != period) closePeriod();
            period = periodOf(day);
            if (period >= firstPeriod && (period - firstPeriod) % m_rule.interval == 0 && has(day))
                addTimes(day);
        }
        closePeriod();
        std::erase_if(m_times, [last](LocalTime time) { return time >= last + days{1}; });
        return m_times;
    }

private:
    Day weekOf(Day day) const { return day - (weekday{day} - *m_rule.weekStart); }
    // The year that has the most of a week has the week.
    year_month_day middleOfWeek(Day day) const { return year_month_day{weekOf(day) + days{3}}; }
    static int dayOfYear(Day day) { return int((day - Day{year_month_day{day}.year() / 1 / 1}).count()) + 1; }
    int weekNumber(Day day) const { return (dayOfYear(Day{middleOfWeek(day)}) - 1) / 7 + 1; }

    int periodOf(Day day) const
    {
        const year_month_day date{day};
        switch (m_rule.frequency) {
        case Frequency::Daily:
            return int(day.time_since_epoch().count());
        case Frequency::Weekly:
            return int((weekOf(day) - weekOf(Day{1900y / 1 / 7})).count()) / 7;
        case Frequency::Monthly:
            return int{date.year()} * 12 + int(unsigned{date.month()});
        default:
            return int{m_rule.byWeekNo.isEmpty() ? date.year() : middleOfWeek(day).year()};
        }
    }

    // Whether a list names a place, counted from the start or from the end of `length`.
    template <class Set>
    static bool names(const Set &set, int place, int length)
    {
        return set.isEmpty() || set.contains(place) || set.contains(place - length - 1);
    }

    bool has(Day day) const
    {
        const year_month_day date{day};
        const int monthLength = int(unsigned{year_month_day_last{date.year() / date.month() / last}.day()});
        const int yearLength = date.year().is_leap() ? 366 : 365;
        const int weeks = weekNumber(Day{middleOfWeek(day).year() / 12 / 28});
        return (m_rule.byMonth.isEmpty() || m_rule.byMonth.contains(int(unsigned{date.month()}))) &&
               names(m_rule.byMonthDay, int(unsigned{date.day()}), monthLength) &&
               names(m_rule.byYearDay, dayOfYear(day), yearLength) &&
               (m_rule.byWeekNo.isEmpty() || names(m_rule.byWeekNo, weekNumber(day), weeks)) &&
               hasWeekday(day, monthLength, yearLength) && hasWhatTheStartSays(day);
    }

    bool hasWeekday(Day day, int monthLength, int yearLength) const
    {
        if (m_rule.byDay.isEmpty()) return true;
        const int weekday = int(std::chrono::weekday{day}.c_encoding());
        if (m_rule.byDay.every().contains(weekday)) return true;
        const bool inYear = m_rule.frequency == Frequency::Yearly && m_rule.byMonth.isEmpty();
        const int place = inYear ? dayOfYear(day) : int(unsigned{year_month_day{day}.day()});
        const int left = (inYear ? yearLength : monthLength) - place;
        const WeekdaySet::Ordinals &ordinals = m_rule.byDay.ordinals(weekday);
        return ordinals.contains((place - 1) / 7 + 1) || ordinals.contains(-(left / 7 + 1));
    }

    // Where the rule names no day.
    bool hasWhatTheStartSays(Day day) const
    {
        const bool namesDay =
            !m_rule.byDay.isEmpty() || !m_rule.byMonthDay.isEmpty() || !m_rule.byYearDay.isEmpty();
        if (namesDay || m_rule.frequency == Frequency::Daily) return true;
        if (m_rule.frequency == Frequency::Weekly || !m_rule.byWeekNo.isEmpty())
            return weekday{day} == weekday{m_startDay};
        const year_month_day date{day};
        const bool needsMonth = m_rule.frequency == Frequency::Yearly && m_rule.byMonth.isEmpty();
        return date.day() == m_startDate.day() && (!needsMonth || date.month() == m_startDate.month());
    }

    void addTimes(Day day)
    {
        const int startSecond = int((floor<seconds>(m_start) - m_startDay).count());
        const auto is = [](const auto &set, int number, int usual) {
            return set.isEmpty() ? number == usual : set.contains(number);
        };
        for (int h = 0; h < 24; ++h)
            for (int m = 0; is(m_rule.byHour, h, startSecond / 3600) && m < 60; ++m)
                for (int s = 0; is(m_rule.byMinute, m, startSecond / 60 % 60) && s < 60; ++s)
                    if (is(m_rule.bySecond, s, startSecond % 60))
                        m_period.push_back(day + hours{h} + minutes{m} + seconds{s});
    }

    void closePeriod()
    {
        for (std::size_t i = 0; i < m_period.size(); ++i)
            if (m_period[i] > m_start && names(m_rule.bySetPos, int(i) + 1, int(m_period.size())))
                m_times.push_back(m_period[i]);
        m_period.clear();
    }

    const CXRecurrenceRule &m_rule;
    LocalTime m_start;
    Day m_startDay;
    year_month_day m_startDate;
    std::vector<LocalTime> m_period;
    std::vector<LocalTime> m_times;
};

} // namespace

std::vector<LocalTime> readDayByDay(const CXRecurrenceRule &rule, LocalTime start, Day last)
{
    return DayByDay{rule, start}.readTo(last);
}
