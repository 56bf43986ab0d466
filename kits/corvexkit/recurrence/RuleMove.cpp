#include "corvexkit/recurrence/RuleMove.h"

#include <chrono>

namespace {

using namespace std::chrono;

// A day as the parts of a rule name it.
struct NamedDay {
    explicit NamedDay(Day day) : date(day), weekday(day)
    {
        const year_month_day last{local_days{date.year() / date.month() / std::chrono::last}};
        dayFromEnd = int(unsigned(date.day())) - int(unsigned(last.day())) - 1;
    }
    int month() const { return int(unsigned(date.month())); }
    int day() const { return int(unsigned(date.day())); }
    // Among the weekdays of its name in the month.
    int ordinal() const { return (day() - 1) / 7 + 1; }
    int ordinalFromEnd() const { return (dayFromEnd + 1) / 7 - 1; }

    year_month_day date;
    std::chrono::weekday weekday;
    int dayFromEnd; // of the month; the last is -1
};

template <class Set>
Set replaced(const Set &set, int from, int to)
{
    Set moved;
    set.forEach([&](int each) { moved.insert(each == from ? to : each); });
    return moved;
}

OrdinalSet<31> movedMonthDays(const OrdinalSet<31> &days, const NamedDay &from, const NamedDay &to)
{
    return days.contains(from.day()) ? replaced(days, from.day(), to.day())
                                     : replaced(days, from.dayFromEnd, to.dayFromEnd);
}

WeekdaySet movedWeekdays(const WeekdaySet &days, const NamedDay &from, const NamedDay &to)
{
    WeekdaySet moved;
    const int weekday = int(from.weekday.c_encoding());
    days.every().forEach(
        [&](int each) { moved.insert(each == weekday ? to.weekday : std::chrono::weekday{unsigned(each)}); });
    days.withOrdinals().forEach([&](int each) {
        days.ordinals(each).forEach([&](int ordinal) {
            if (each == weekday && ordinal == from.ordinal())
                moved.insert(to.weekday, to.ordinal());
            else if (each == weekday && ordinal == from.ordinalFromEnd())
                moved.insert(to.weekday, to.ordinalFromEnd());
            else
                moved.insert(std::chrono::weekday{unsigned(each)}, ordinal);
        });
    });
    return moved;
}

// Weeks, days of the year and positions do not move by themselves, nor do ordinals within a year.
bool hasFixedDays(const CXRecurrenceRule &rule)
{
    const bool isWithinYear = rule.frequency == CXRecurrenceRule::Frequency::Yearly && rule.byMonth.isEmpty();
    return !rule.byWeekNo.isEmpty() || !rule.byYearDay.isEmpty() || !rule.bySetPos.isEmpty() ||
           (rule.byDay.hasOrdinals() && isWithinYear);
}

bool hasFixedTimes(const CXRecurrenceRule &rule)
{
    return !rule.byHour.isEmpty() || !rule.byMinute.isEmpty() || !rule.bySecond.isEmpty();
}

// The end of a rule, moved along.
struct MoveEnd {
    LocalTime from;
    LocalTime to;
    void operator()(Day &last) const { last += floor<days>(to) - floor<days>(from); }
    void operator()(auto &last) const { last += to - from; }
};

} // namespace

std::optional<CXRecurrenceRule> movedRule(const CXRecurrenceRule &rule, LocalTime from, LocalTime to)
{
    const Day firstDay = floor<days>(from);
    const Day lastDay = floor<days>(to);
    if (from - firstDay != to - lastDay && hasFixedTimes(rule)) return std::nullopt;
    CXRecurrenceRule moved = rule;
    if (moved.until) std::visit(MoveEnd{from, to}, *moved.until);
    if (firstDay == lastDay) return moved;
    if (hasFixedDays(rule)) return std::nullopt;
    const NamedDay before{firstDay};
    const NamedDay after{lastDay};
    moved.byMonth = replaced(rule.byMonth, before.month(), after.month());
    moved.byMonthDay = movedMonthDays(rule.byMonthDay, before, after);
    moved.byDay = movedWeekdays(rule.byDay, before, after);
    return moved;
}
