#include "model/records/HabitFrequency.h"

#include "corvexkit/recurrence/CXRecurrenceRule.h"

HabitFrequency HabitFrequency::ofRule(const QString &repeatRule)
{
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(repeatRule);
    if (!rule) return {};
    if (rule->timesInWeekly > 0) return {.kind = Kind::Weekly, .timesInWeekly = rule->timesInWeekly};
    if (rule->frequency == CXRecurrenceRule::Frequency::Daily && rule->interval > 1)
        return {.kind = Kind::Repeat, .interval = rule->interval};
    return {.weekdays = rule->byDay.every()};
}

QString HabitFrequency::toRule() const
{
    CXRecurrenceRule rule;
    switch (kind) {
    case Kind::Daily:
        weekdays.forEach([&rule](int each) { rule.byDay.insert(std::chrono::weekday{unsigned(each)}); });
        break;
    case Kind::Weekly:
        rule.frequency = CXRecurrenceRule::Frequency::Weekly;
        rule.timesInWeekly = timesInWeekly;
        break;
    case Kind::Repeat:
        rule.interval = interval;
        break;
    }
    return rule.toIcal();
}

bool HabitFrequency::isDueOn(Day day, Day firstDay) const
{
    if (day < firstDay) return false;
    switch (kind) {
    case Kind::Daily:
        return weekdays.isEmpty() || weekdays.contains(int(std::chrono::weekday{day}.c_encoding()));
    case Kind::Weekly:
        return true;
    case Kind::Repeat:
        break;
    }
    return (day - firstDay).count() % interval == 0;
}
