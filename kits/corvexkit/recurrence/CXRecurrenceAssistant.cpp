#include "corvexkit/recurrence/CXRecurrenceAssistant.h"

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "corvexkit/recurrence/OccurrenceCollector.h"
#include "corvexkit/recurrence/RuleCompletion.h"
#include "corvexkit/recurrence/RuleExpansion.h"

#include <algorithm>

using namespace std::chrono;

namespace {

constexpr Instant firstInstant{sys_days{year{1} / January / 1}};
constexpr Instant lastInstant{sys_days{year{10'000} / January / 1} - milliseconds{1}};

constexpr QStringView onceAlone{u"FREQ=DAILY;COUNT=1"}; // the start, for an object without a rule

using Range = OccurrenceCollector::Range;

// Completes `rule`.
std::vector<Instant> occurrencesOfRule(CXRecurrenceRule &rule, const CXRecurringObject &object,
                                       const Range &range, bool includingFirst)
{
    OccurrenceCollector collector{object, rule, range};
    const bool wantsLater = !includingFirst || range.from > *object.startDate || collector.takeStart();
    const bool stepsByDays = rule.frequency >= CXRecurrenceRule::Frequency::Daily;
    if (wantsLater && (stepsByDays || !object.isAllDay)) {
        completeFromStart(rule, {collector.start(), object.isAllDay, object.firstWeekday});
        expandRule(rule, collector);
    }
    return std::move(collector).instants();
}

// Takes the additional dates of the range among `occurrences`, ascending, each once.
void addAdditionalDates(std::vector<Instant> &occurrences, const CXRecurringObject &object,
                        const Range &range)
{
    const CXTimeZone &zone = object.timeZone;
    const auto middle = std::ptrdiff_t(occurrences.size());
    for (const Instant date : object.additionalOccurrenceDates) {
        const Instant occurrence = object.isAllDay ? zone.startOfDay(zone.dayOf(date)) : date;
        const bool isWithin = occurrence >= range.from && occurrence <= range.to;
        if (isWithin && occurrence > *object.startDate && !object.excludes(occurrence))
            occurrences.push_back(occurrence);
    }
    std::inplace_merge(occurrences.begin(), occurrences.begin() + middle, occurrences.end());
    occurrences.erase(std::unique(occurrences.begin(), occurrences.end()), occurrences.end());
    if (occurrences.size() > range.limit) occurrences.resize(range.limit);
}

} // namespace

std::vector<Instant> CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
    const CXRecurringObject &object, Instant from, Instant to, bool includingFirst,
    std::optional<std::size_t> limit)
{
    if (!object.startDate || *object.startDate < firstInstant || limit == 0U) return {};
    const Range range{std::max(from, *object.startDate), std::min(to, lastInstant),
                      limit.value_or(std::numeric_limits<std::size_t>::max())};
    if (range.from > range.to) return {};
    const bool hasAdditional = !object.additionalOccurrenceDates.empty();
    const bool isWithoutRule = hasAdditional && object.recurrenceRuleString.isEmpty();
    Result<CXRecurrenceRule> rule =
        CXRecurrenceRule::parse(isWithoutRule ? onceAlone : QStringView{object.recurrenceRuleString});
    if (!rule) return {};
    std::vector<Instant> occurrences = occurrencesOfRule(*rule, object, range, includingFirst);
    if (hasAdditional) addAdditionalDates(occurrences, object, range);
    return occurrences;
}

std::optional<Instant> CXRecurrenceAssistant::nextOccurrence(const CXRecurringObject &object, Instant after)
{
    if (after >= lastInstant) return {};
    const std::vector<Instant> next =
        calendar_occurrenceDatesForRecurringObject(object, after + milliseconds{1}, lastInstant, true, 1);
    return next.empty() ? std::nullopt : std::optional{next.front()};
}
