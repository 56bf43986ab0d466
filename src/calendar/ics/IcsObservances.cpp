#include "calendar/ics/IcsObservances.h"

#include "calendar/ics/IcsComponent.h"

using namespace Qt::StringLiterals;

namespace {

struct Observance {
    icaltimetype start;
    int offset = 0; // seconds east of Greenwich
    std::optional<icalrecurrencetype> rule;
};

Observance observanceOf(icalcomponent &component)
{
    Observance observance{icaltime_null_time(), 0, {}};
    for (icalproperty *each = icalcomponent_get_first_property(&component, ICAL_ANY_PROPERTY); each;
         each = icalcomponent_get_next_property(&component, ICAL_ANY_PROPERTY)) {
        if (!icalproperty_get_value(each)) continue;
        switch (icalproperty_isa(each)) {
        case ICAL_DTSTART_PROPERTY:
            observance.start = icalproperty_get_dtstart(each);
            break;
        case ICAL_TZOFFSETTO_PROPERTY:
            observance.offset = icalproperty_get_tzoffsetto(each);
            break;
        case ICAL_RRULE_PROPERTY:
            observance.rule = icalproperty_get_rrule(each);
            break;
        default:
            break;
        }
    }
    return observance;
}

bool goesOn(const Observance &observance)
{
    return observance.rule && observance.rule->freq == ICAL_YEARLY_RECURRENCE &&
           observance.rule->count == 0 && icaltime_is_null_time(observance.rule->until);
}

// Of those that go on, or of all, the one that began last.
std::optional<Observance> latest(icalcomponent &zone, icalcomponent_kind kind, bool goingOn)
{
    std::optional<Observance> latest;
    for (icalcomponent *each = icalcomponent_get_first_component(&zone, kind); each;
         each = icalcomponent_get_next_component(&zone, kind)) {
        const Observance observance = observanceOf(*each);
        if (goingOn && !goesOn(observance)) continue;
        if (!latest || icaltime_compare(latest->start, observance.start) < 0) latest = observance;
    }
    return latest;
}

// "<+0530>-5:30", as POSIX.1-2017 section 8.3 counts: west of Greenwich is positive.
QString posixOffset(int east)
{
    const int minutes = std::abs(east) / 60;
    const QLatin1Char sign{east < 0 ? '-' : '+'};
    return u"<%1%2%3>%4%2:%3"_s.arg(sign)
        .arg(minutes / 60, 2, 10, QLatin1Char{'0'})
        .arg(minutes % 60, 2, 10, QLatin1Char{'0'})
        .arg(QLatin1Char{east < 0 ? '+' : '-'});
}

// Which Sunday of the month it is, 5 for the last; nothing for a rule that says it otherwise.
std::optional<int> weekOf(const icalrecurrencetype &rule)
{
    const int position = icalrecurrencetype_day_position(rule.by_day[0]);
    if (position == -1) return 5;
    if (position > 0) return position <= 4 ? std::optional{position} : std::nullopt;
    const int day = rule.by_month_day[0]; // "the Sunday from the 8th on"
    if (position < 0 || day == ICAL_RECURRENCE_ARRAY_MAX || day % 7 != 1) return std::nullopt;
    return day / 7 + 1;
}

// "M3.5.0/2:0": when the offset of the observance begins.
std::optional<QString> posixDate(const Observance &observance)
{
    const icalrecurrencetype &rule = *observance.rule;
    if (rule.by_month[0] == ICAL_RECURRENCE_ARRAY_MAX || rule.by_day[0] == ICAL_RECURRENCE_ARRAY_MAX)
        return std::nullopt;
    const std::optional<int> week = weekOf(rule);
    if (!week) return std::nullopt;
    const int weekday = icalrecurrencetype_day_day_of_week(rule.by_day[0]) - ICAL_SUNDAY_WEEKDAY;
    return u"M%1.%2.%3/%4:%5"_s.arg(rule.by_month[0])
        .arg(*week)
        .arg(weekday)
        .arg(observance.start.hour)
        .arg(observance.start.minute);
}

std::optional<CXTimeZone> zoneWithSummerTime(icalcomponent &zone)
{
    const auto winter = latest(zone, ICAL_XSTANDARD_COMPONENT, true);
    const auto summer = latest(zone, ICAL_XDAYLIGHT_COMPONENT, true);
    if (!winter || !summer) return std::nullopt;
    const auto winterBegins = posixDate(*winter);
    const auto summerBegins = posixDate(*summer);
    if (!winterBegins || !summerBegins) return std::nullopt;
    return CXTimeZone::named(posixOffset(winter->offset) + posixOffset(summer->offset) + u',' +
                             *summerBegins + u',' + *winterBegins);
}

} // namespace

std::optional<CXTimeZone> zoneOfObservances(const IcsComponent &zone)
{
    if (const auto withSummerTime = zoneWithSummerTime(*zone.get())) return withSummerTime;
    std::optional<Observance> last;
    for (const auto kind : {ICAL_XDAYLIGHT_COMPONENT, ICAL_XSTANDARD_COMPONENT}) {
        const auto latestOfKind = latest(*zone.get(), kind, false);
        if (latestOfKind && (!last || icaltime_compare(last->start, latestOfKind->start) <= 0))
            last = latestOfKind;
    }
    return last ? CXTimeZone::named(posixOffset(last->offset)) : std::nullopt;
}
