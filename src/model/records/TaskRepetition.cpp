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

CXRecurringObject recurringObject(const KWTaskModel &task, const TaskRepetition::Now &now)
{
    return {.startDate = task.startDate,
            .isAllDay = task.isAllDay,
            .recurrenceRuleString = task.repeatRule,
            .excludedOccurrenceDates = {task.exDates.begin(), task.exDates.end()},
            .timeZone = TaskRepetition::zoneOf(task, now.zone),
            .firstWeekday = now.firstWeekday};
}

// The task at the occurrence of `object` that starts there.
TaskRepetition repetitionAt(Instant start, const KWTaskModel &task, const CXRecurrenceRule &rule,
                            const CXRecurringObject &object, const TaskRepetition::Now &now)
{
    const CXTimeZone &zone = object.timeZone;
    return {.startDate = start,
            .endDate = movedEnd(task, start, zone),
            .repeatRule = ruleFrom(start, rule, object),
            .zone = zone,
            .step = zone.toLocal(start) - zone.toLocal(*task.startDate),
            .localZone = now.zone};
}

} // namespace

CXTimeZone TaskRepetition::zoneOf(const KWTaskModel &task, const CXTimeZone &local)
{
    if (task.isAllDay || task.isFloating) return local;
    return CXTimeZone::named(task.timeZone).value_or(local);
}

std::optional<TaskRepetition> TaskRepetition::next(const KWTaskModel &task, const Now &now)
{
    if (task.repeatRule.isEmpty() || !task.startDate) return std::nullopt;
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(task.repeatRule);
    if (!rule) return std::nullopt;

    CXRecurringObject object = recurringObject(task, now);
    if (task.repeatFrom == CXRecurrenceFromCompletionDate)
        object.startDate = startAtCompletion(object, *rule, now.instant);
    const auto next = CXRecurrenceAssistant::nextOccurrence(object, std::max(*object.startDate, now.instant));
    if (!next) return std::nullopt;
    return repetitionAt(*next, task, *rule, object, now);
}

std::optional<TaskRepetition> TaskRepetition::at(const KWTaskModel &task, Instant occurrence, const Now &now)
{
    if (!task.startDate || occurrence <= *task.startDate) return std::nullopt;
    if (task.repeatFrom == CXRecurrenceFromCompletionDate) return std::nullopt;
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(task.repeatRule);
    if (!rule) return std::nullopt;

    const CXRecurringObject object = recurringObject(task, now);
    const bool isThere = !CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
                              object, occurrence, occurrence, false)
                              .empty();
    if (!isThere) return std::nullopt;
    return repetitionAt(occurrence, task, *rule, object, now);
}

QString TaskRepetition::ruleEndingAt(const KWTaskModel &task, Instant occurrence, LastOne last,
                                     const Now &now)
{
    Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(task.repeatRule);
    if (!rule || !task.startDate) return {};
    const CXRecurringObject object = recurringObject(task, now);
    const Instant end = last == LastOne::This ? occurrence : occurrence - milliseconds{1};
    const bool areMore = !CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
                              object, *task.startDate, end, false, 1)
                              .empty();
    if (!areMore) return {};
    rule->count.reset();
    if (task.isAllDay)
        rule->until = object.timeZone.dayOf(end);
    else if (task.isFloating)
        rule->until = object.timeZone.toLocal(std::chrono::floor<std::chrono::seconds>(end));
    else
        rule->until = std::chrono::floor<std::chrono::seconds>(end);
    return rule->toIcal();
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
