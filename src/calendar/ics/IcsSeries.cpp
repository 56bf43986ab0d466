#include "calendar/ics/IcsSeries.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <QMultiHash>

#include <algorithm>

using namespace std::chrono;

namespace {

using Model = KWCalSubscriptionEventModel;

// The occurrence of `event` that `date` names. Calendars write a day for one that has a time, or a time for
// one that has none.
Instant occurrenceAt(const IcsDate &date, const IcsEvent &event, const CXTimeZone &inForce)
{
    IcsDate named = date;
    if (event.start.isDay) {
        named.isDay = true;
    } else if (date.isDay) {
        named = event.start;
        named.local += date.day() - event.start.day();
    }
    return named.instant(inForce);
}

CXRecurringObject seriesOf(const Model &model, const CXTimeZone &inForce)
{
    const bool isLocal = model.isAllDay || model.isFloating;
    CXRecurringObject series;
    series.startDate = model.startDate;
    series.isAllDay = model.isAllDay;
    series.recurrenceRuleString = model.repeatRule;
    series.timeZone = isLocal ? inForce : CXTimeZone::named(model.timeZone).value_or(inForce);
    return series;
}

// From one occurrence to another one: the length stays, of what is all-day in days.
void moveTo(Instant start, Model &model, const CXTimeZone &inForce)
{
    if (model.isAllDay)
        model.endDate = inForce.startOfDay(inForce.dayOf(start) +
                                           (inForce.dayOf(*model.endDate) - inForce.dayOf(*model.startDate)));
    else
        model.endDate = start + (*model.endDate - *model.startDate);
    model.startDate = start;
}

// The event itself is its first occurrence, so that must be one that is not left out. False when none is
// left.
bool beginWithFirstLeft(Model &model, const CXTimeZone &inForce)
{
    if (!model.exDates.contains(*model.startDate)) return true;
    CXRecurringObject series = seriesOf(model, inForce);
    const std::set<Instant> excluded{model.exDates.begin(), model.exDates.end()};
    series.excludedOccurrenceDates = excluded;
    const auto first = CXRecurrenceAssistant::nextOccurrence(series, *model.startDate);
    if (!first) return false;
    auto rule = CXRecurrenceRule::parse(model.repeatRule);
    if (rule && rule->count) {
        series.excludedOccurrenceDates.clear();
        const auto passed = CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
            series, *model.startDate, *first - milliseconds{1}, true);
        *rule->count -= int(passed.size());
        model.repeatRule = rule->toIcal();
    }
    moveTo(*first, model, inForce);
    return true;
}

/// Takes the events of a calendar, those that repeat with the ids of what stands for itself.
class SeriesJoiner {
public:
    SeriesJoiner(std::vector<IcsEvent> events, const CXTimeZone &inForce)
        : m_events(std::move(events)), m_inForce(inForce)
    {
    }

    std::vector<Model> join()
    {
        for (std::size_t i = 0; i < m_events.size(); ++i)
            if (!m_events[i].recurrenceID) m_series.insert(m_events[i].model.uid, i);
        for (IcsEvent &each : m_events)
            if (each.recurrenceID) leaveOutOfSeries(each);
        for (IcsEvent &each : m_events)
            if (!each.isCancelled) take(each);
        return std::move(m_joined);
    }

private:
    void leaveOutOfSeries(IcsEvent &occurrence)
    {
        occurrence.model.recurrenceID = occurrence.recurrenceID->instant(m_inForce);
        const auto [first, last] = m_series.equal_range(occurrence.model.uid);
        for (auto each = first; each != last; ++each) {
            IcsEvent &series = m_events[*each];
            const Instant date = occurrenceAt(*occurrence.recurrenceID, series, m_inForce);
            occurrence.model.recurrenceID = date;
            series.model.exDates.append(date);
        }
    }

    void take(IcsEvent &event)
    {
        Model &model = event.model;
        for (const IcsDate &each : event.exDates)
            model.exDates.append(occurrenceAt(each, event, m_inForce));
        std::ranges::sort(model.exDates);
        addAdditional(event);
        std::ranges::sort(model.exDates);
        model.exDates.erase(std::unique(model.exDates.begin(), model.exDates.end()), model.exDates.end());
        if (!beginWithFirstLeft(model, m_inForce)) return;
        if (model.repeatRule.isEmpty()) model.exDates.clear();
        m_joined.push_back(std::move(model));
    }

    void addAdditional(IcsEvent &event)
    {
        const QList<Instant> excluded = event.model.exDates;
        std::set<Instant> added{*event.model.startDate};
        for (const IcsEvent::Additional &each : event.additional) {
            Model model = event.model;
            const Instant start = occurrenceAt(each.start, event, m_inForce);
            if (std::ranges::binary_search(excluded, start) || !added.insert(start).second) continue;
            moveTo(start, model, m_inForce);
            if (each.end && !model.isAllDay) model.endDate = std::max(*each.end, start);
            model.recurrenceID = start;
            model.repeatRule.clear();
            model.exDates.clear();
            m_joined.push_back(std::move(model));
            event.model.exDates.append(start);
        }
    }

    std::vector<IcsEvent> m_events;
    const CXTimeZone m_inForce;
    QMultiHash<QString, std::size_t> m_series; // by UID
    std::vector<Model> m_joined;
};

} // namespace

std::vector<Model> joinSeries(std::vector<IcsEvent> events, const CXTimeZone &inForce)
{
    return SeriesJoiner{std::move(events), inForce}.join();
}
