#include "corvexkit/recurrence/RuleCompletion.h"

using namespace std::chrono;

namespace {

void completeDays(CXRecurrenceRule &rule, Day start)
{
    using enum CXRecurrenceRule::Frequency;
    if (rule.frequency < Weekly || !rule.byDay.isEmpty()) return;
    if (rule.frequency == Weekly) return rule.byDay.insert(weekday{start});
    if (!rule.byMonthDay.isEmpty() || !rule.byYearDay.isEmpty()) return;
    if (!rule.byWeekNo.isEmpty()) return rule.byDay.insert(weekday{start});
    const year_month_day date{start};
    rule.byMonthDay.insert(int(unsigned{date.day()}));
    if (rule.frequency == Yearly && rule.byMonth.isEmpty()) rule.byMonth.insert(int(unsigned{date.month()}));
}

void completeTimes(CXRecurrenceRule &rule, seconds sinceMidnight)
{
    using enum CXRecurrenceRule::Frequency;
    if (rule.frequency > Hourly && rule.byHour.isEmpty()) rule.byHour.insert(int(sinceMidnight / 1h));
    if (rule.frequency > Minutely && rule.byMinute.isEmpty())
        rule.byMinute.insert(int(sinceMidnight % 1h / 1min));
    if (rule.frequency > Secondly && rule.bySecond.isEmpty())
        rule.bySecond.insert(int(sinceMidnight % 1min / 1s));
}

// Second 60 means 59, RFC 5545 section 3.3.12.
void dropLeapSecond(CXRecurrenceRule &rule)
{
    if (!rule.bySecond.contains(60)) return;
    NumberSet<0, 60> realSeconds;
    rule.bySecond.forEach([&](int second) { realSeconds.insert(std::min(second, 59)); });
    rule.bySecond = realSeconds;
}

} // namespace

void completeFromStart(CXRecurrenceRule &rule, const RuleStart &start)
{
    const Day day = floor<days>(start.time);
    if (!rule.weekStart) rule.weekStart = start.firstWeekday;
    completeDays(rule, day);
    if (start.isAllDay) {
        rule.byHour = {};
        rule.byMinute = {};
        rule.bySecond = {};
    }
    completeTimes(rule, start.time - day);
    dropLeapSecond(rule);
}
