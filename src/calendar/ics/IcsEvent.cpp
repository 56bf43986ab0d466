#include "calendar/ics/IcsEvent.h"

#include "calendar/ics/IcsComponent.h"
#include "calendar/ics/IcsLines.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "model/records/OneLine.h"

using namespace Qt::StringLiterals;

namespace {

/// Reads the properties into an event.
class EventReader {
public:
    EventReader(const IcsZones &zones, const CXTimeZone &inForce) : m_zones(zones), m_inForce(inForce) {}

    void read(icalproperty &property);
    std::optional<IcsEvent> finish();

private:
    std::optional<IcsDate> dateOf(icalproperty &property) const;
    void addAdditional(icalproperty &property);
    void setEnd();

    const IcsZones &m_zones;
    const CXTimeZone m_inForce;
    IcsEvent m_event;
    std::optional<IcsDate> m_start;
    std::optional<IcsDate> m_end;
    std::optional<icaldurationtype> m_duration;
};

bool isDateValue(const icalvalue *value)
{
    const icalvalue_kind kind = icalvalue_isa(value);
    return kind == ICAL_DATE_VALUE || kind == ICAL_DATETIME_VALUE;
}

void EventReader::read(icalproperty &property)
{
    KWCalSubscriptionEventModel &model = m_event.model;
    const auto take = [&property](QString &text) { text = icsText(property).value_or(text); };
    switch (icalproperty_isa(&property)) {
    case ICAL_UID_PROPERTY:
        return take(model.uid);
    case ICAL_SUMMARY_PROPERTY:
        take(model.title);
        model.title = onOneLine(model.title);
        return;
    case ICAL_DESCRIPTION_PROPERTY:
        return take(model.notes);
    case ICAL_LOCATION_PROPERTY:
        take(model.location);
        model.location = onOneLine(model.location);
        return;
    case ICAL_STATUS_PROPERTY:
        m_event.isCancelled = icalproperty_get_status(&property) == ICAL_STATUS_CANCELLED;
        return;
    case ICAL_DTSTART_PROPERTY:
        m_start = dateOf(property);
        return;
    case ICAL_DTEND_PROPERTY:
        m_end = dateOf(property);
        return;
    case ICAL_DURATION_PROPERTY:
        m_duration = icalproperty_get_duration(&property);
        return;
    case ICAL_RECURRENCEID_PROPERTY:
        m_event.recurrenceID = dateOf(property);
        return;
    case ICAL_EXDATE_PROPERTY:
        if (const auto date = dateOf(property)) m_event.exDates.push_back(*date);
        return;
    case ICAL_RDATE_PROPERTY:
        return addAdditional(property);
    default:
        return;
    }
}

std::optional<IcsDate> EventReader::dateOf(icalproperty &property) const
{
    const icalvalue *value = icalproperty_get_value(&property);
    if (!isDateValue(value)) return std::nullopt;
    return IcsDate::from(icalvalue_get_datetime(value), icsZoneName(property), m_zones);
}

void EventReader::addAdditional(icalproperty &property)
{
    const icalvalue *value = icalproperty_get_value(&property);
    if (isDateValue(value)) {
        if (const auto date = dateOf(property)) m_event.additional.push_back({*date});
        return;
    }
    if (icalvalue_isa(value) != ICAL_PERIOD_VALUE && icalvalue_isa(value) != ICAL_DATETIMEPERIOD_VALUE)
        return;
    const icalperiodtype period = icalproperty_get_rdate(&property).period;
    const QString zone = icsZoneName(property);
    const auto start = IcsDate::from(period.start, zone, m_zones);
    if (!start) return;
    const auto end = IcsDate::from(period.end, zone, m_zones);
    m_event.additional.push_back(
        {*start, end ? end->instant(m_inForce) : start->instantAfter(period.duration, m_inForce)});
}

void EventReader::setEnd()
{
    KWCalSubscriptionEventModel &model = m_event.model;
    Instant end = *model.startDate;
    if (m_end && m_end->isDay == m_start->isDay)
        end = m_end->instant(m_inForce);
    else if (m_duration)
        end = m_start->instantAfter(*m_duration, m_inForce);
    // A day at least, and whole ones.
    if (model.isAllDay) {
        const Day last = std::max(m_inForce.dayOf(end), m_start->day() + std::chrono::days{1});
        end = m_inForce.startOfDay(last);
    }
    model.endDate = std::max(end, *model.startDate);
}

std::optional<IcsEvent> EventReader::finish()
{
    if (!m_start) return std::nullopt;
    KWCalSubscriptionEventModel &model = m_event.model;
    m_event.start = *m_start;
    model.isAllDay = m_start->isDay;
    model.isFloating = !model.isAllDay && !m_start->zone;
    model.timeZone = m_start->zone.value_or(m_inForce).identifier();
    model.startDate = m_start->instant(m_inForce);
    setEnd();
    return std::move(m_event);
}

// As it is written: another reader might have changed it.
QString ruleIn(const QByteArray &block)
{
    IcsLines lines{block};
    while (lines.next()) {
        const QByteArray &line = lines.line();
        if (line.size() < 6 || line.first(5).toUpper() != "RRULE") continue;
        const qsizetype colon = line.indexOf(':');
        if (line.at(5) != ':' && line.at(5) != ';') continue;
        auto rule = CXRecurrenceRule::parse(QString::fromUtf8(line.sliced(colon + 1)));
        if (!rule) return {};
        // Without one the setting of the person would count.
        if (!rule->weekStart) rule->weekStart = std::chrono::Monday;
        return rule->toIcal();
    }
    return {};
}

} // namespace

std::optional<IcsEvent> IcsEvent::parse(const QByteArray &block, const IcsZones &zones,
                                        const CXTimeZone &inForce)
{
    const auto component = IcsComponent::parse(block);
    if (!component || icalcomponent_isa(component->get()) != ICAL_VEVENT_COMPONENT) return std::nullopt;
    EventReader reader{zones, inForce};
    component->forEachProperty([&](icalproperty &property) { reader.read(property); });
    std::optional<IcsEvent> event = reader.finish();
    if (event && !event->recurrenceID) event->model.repeatRule = ruleIn(block);
    return event;
}
