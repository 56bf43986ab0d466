#include "corvexkit/recurrence/CXRecurrenceAssistant.h"

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "corvexkit/recurrence/OccurrenceCollector.h"
#include "corvexkit/recurrence/RuleCompletion.h"
#include "corvexkit/recurrence/RuleExpansion.h"

using namespace std::chrono;

namespace {

constexpr Instant firstInstant{sys_days{year{1} / January / 1}};
constexpr Instant lastInstant{sys_days{year{10'000} / January / 1} - milliseconds{1}};

} // namespace

std::vector<Instant> CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
    const CXRecurringObject &object, Instant from, Instant to, bool includingFirst,
    std::optional<std::size_t> limit)
{
    if (!object.startDate || *object.startDate < firstInstant || limit == 0U) return {};
    const Instant start = *object.startDate;
    const OccurrenceCollector::Range range{std::max(from, start), std::min(to, lastInstant),
                                           limit.value_or(std::numeric_limits<std::size_t>::max())};
    if (range.from > range.to) return {};
    Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(object.recurrenceRuleString);
    if (!rule) return {};

    OccurrenceCollector collector{object, *rule, range};
    const bool wantsLater = !includingFirst || from > start || collector.takeStart();
    const bool stepsByDays = rule->frequency >= CXRecurrenceRule::Frequency::Daily;
    if (wantsLater && (stepsByDays || !object.isAllDay)) {
        completeFromStart(*rule, {collector.start(), object.isAllDay, object.firstWeekday});
        expandRule(*rule, collector);
    }
    return std::move(collector).instants();
}

std::optional<Instant> CXRecurrenceAssistant::nextOccurrence(const CXRecurringObject &object, Instant after)
{
    if (after >= lastInstant) return {};
    const std::vector<Instant> next =
        calendar_occurrenceDatesForRecurringObject(object, after + milliseconds{1}, lastInstant, true, 1);
    return next.empty() ? std::nullopt : std::optional{next.front()};
}
