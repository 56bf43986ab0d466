#include "model/records/TaskRepetition.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "corvexkit/recurrence/RuleCompletion.h"

#include <algorithm>

namespace {

using std::chrono::days;
using std::chrono::milliseconds;
using Frequency = CXRecurrenceRule::Frequency;

bool hasTimes(const CXRecurrenceRule &rule)
{
    return !rule.byHour.isEmpty() || !rule.byMinute.isEmpty() || !rule.bySecond.isEmpty();
}

milliseconds timeOfDay(LocalTime time) { return time - std::chrono::floor<days>(time); }

// The start to repeat from after a completion: its day with the time of day that the task has.
Instant startAtCompletion(const CXRecurringObject &object, const CXRecurrenceRule &rule, Instant now)
{
    const CXTimeZone &zone = object.timeZone;
    if (object.isAllDay) return zone.startOfDay(zone.dayOf(now));
    if (rule.frequency < Frequency::Daily) return std::chrono::floor<std::chrono::minutes>(now);
    return zone.toInstant(zone.dayOf(now) + timeOfDay(zone.toLocal(*object.startDate)));
}

// How many occurrences lie before `next`, those left out among them.
int occurrencesBefore(Instant next, CXRecurringObject object)
{
    object.excludedOccurrenceDates.clear();
    const auto passed = CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
        object, *object.startDate, next, true);
    return int(passed.size()) - 1;
}

// A reading that a gap moved, or a day that SKIP moved, would be the pattern from now on.
bool losesPattern(const CXRecurrenceRule &rule, const CXRecurringObject &object, Instant next)
{
    if (rule.skip != CXRecurrenceRule::Skip::Omit) return true;
    if (object.isAllDay || rule.frequency < Frequency::Daily || hasTimes(rule)) return false;
    const CXTimeZone &zone = object.timeZone;
    return timeOfDay(zone.toLocal(next)) != timeOfDay(zone.toLocal(*object.startDate));
}

void keepPattern(CXRecurrenceRule &rule, const CXRecurringObject &object)
{
    const CXRecurrenceRule before = rule;
    const LocalTime start = object.timeZone.toLocal(*object.startDate);
    const LocalTime known = object.isAllDay ? LocalTime{std::chrono::floor<days>(start)} : start;
    completeFromStart(rule, {.time = std::chrono::floor<std::chrono::seconds>(known),
                             .isAllDay = object.isAllDay,
                             .firstWeekday = object.firstWeekday});
    rule.weekStart = before.weekStart;
    if (!object.isAllDay) return;
    rule.byHour = before.byHour;
    rule.byMinute = before.byMinute;
    rule.bySecond = before.bySecond;
}

QString ruleFrom(Instant next, CXRecurrenceRule rule, const CXRecurringObject &object)
{
    const CXRecurrenceRule before = rule;
    if (rule.count) *rule.count -= occurrencesBefore(next, object);
    if (losesPattern(rule, object, next)) keepPattern(rule, object);
    return rule == before ? object.recurrenceRuleString : rule.toIcal();
}

std::optional<Instant> movedEnd(const KWTaskModel &task, Instant next, const CXTimeZone &zone)
{
    if (!task.endDate) return std::nullopt;
    if (!task.isAllDay) return next + (*task.endDate - *task.startDate);
    return zone.startOfDay(zone.dayOf(next) + (zone.dayOf(*task.endDate) - zone.dayOf(*task.startDate)));
}

} // namespace

std::optional<TaskRepetition> TaskRepetition::next(const KWTaskModel &task, const Now &now)
{
    if (task.repeatRule.isEmpty() || !task.startDate) return std::nullopt;
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(task.repeatRule);
    if (!rule) return std::nullopt;

    const bool isLocal = task.isAllDay || task.isFloating;
    const CXTimeZone zone = isLocal ? now.zone : CXTimeZone::named(task.timeZone).value_or(now.zone);
    CXRecurringObject object{.startDate = task.startDate,
                             .isAllDay = task.isAllDay,
                             .recurrenceRuleString = task.repeatRule,
                             .excludedOccurrenceDates = {task.exDates.begin(), task.exDates.end()},
                             .timeZone = zone,
                             .firstWeekday = now.firstWeekday};
    if (task.repeatFrom == CXRecurrenceFromCompletionDate)
        object.startDate = startAtCompletion(object, *rule, now.instant);
    const auto next = CXRecurrenceAssistant::nextOccurrence(object, std::max(*object.startDate, now.instant));
    if (!next) return std::nullopt;
    return TaskRepetition{.startDate = *next,
                          .endDate = movedEnd(task, *next, zone),
                          .repeatRule = ruleFrom(*next, *rule, object),
                          .zone = zone,
                          .step = zone.toLocal(*next) - zone.toLocal(*task.startDate),
                          .localZone = now.zone};
}

Instant TaskRepetition::movedAlong(Instant date, bool isAllDay) const
{
    if (isAllDay) {
        const LocalTime start = zone.toLocal(startDate);
        const days passed = std::chrono::floor<days>(start) - std::chrono::floor<days>(start - step);
        return localZone.startOfDay(localZone.dayOf(date) + passed);
    }
    return zone.toInstant(zone.toLocal(date) + step);
}
