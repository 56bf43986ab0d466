#include "calendar/ics/IcsReader.h"

#include "calendar/ics/IcsBlocks.h"
#include "calendar/ics/IcsComponent.h"
#include "calendar/ics/IcsSeries.h"
#include "calendar/ics/IcsZones.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// "#rrggbb", or with the opacity behind it; a name is passed over.
QString colorIn(const QString &text)
{
    const bool isColor = (text.size() == 7 || text.size() == 9) && text.startsWith(u'#') &&
                         std::ranges::all_of(text.sliced(1), [](QChar each) {
                             return each.isDigit() || (each.toLower() >= u'a' && each.toLower() <= u'f');
                         });
    return isColor ? text.first(7).toLower() : QString{};
}

void readHead(const QByteArray &head, IcsCalendar &calendar)
{
    const auto component = IcsComponent::parse(head);
    if (!component) return;
    QString appleColor;
    component->forEachProperty([&](icalproperty &property) {
        const QLatin1StringView name{icalproperty_get_property_name(&property)};
        const QString text = icsText(property).value_or(QString{});
        if (name == "X-WR-CALNAME"_L1 || (name == "NAME"_L1 && calendar.name.isEmpty()))
            calendar.name = onOneLine(text);
        if (name == "COLOR"_L1) calendar.color = colorIn(text.trimmed());
        if (name == "X-APPLE-CALENDAR-COLOR"_L1) appleColor = colorIn(text.trimmed());
    });
    if (calendar.color.isEmpty()) calendar.color = appleColor;
}

} // namespace

Result<IcsCalendar> IcsReader::read(const QByteArray &text, const CXTimeZone &inForce)
{
    const Result<IcsBlocks> blocks = IcsBlocks::cut(text);
    if (!blocks) return blocks.error();
    IcsCalendar calendar;
    calendar.leftOut = blocks->leftOut;
    readHead(blocks->head, calendar);
    const IcsZones zones{blocks->zones};
    std::vector<IcsEvent> events;
    std::int64_t occurrencesADay = 0;
    std::size_t dates = 0;
    for (const QByteArray &each : blocks->events) {
        auto event = IcsEvent::parse(each, zones, inForce);
        if (!event) {
            ++calendar.leftOut;
            continue;
        }
        if (const auto rule = CXRecurrenceRule::parse(event->model.repeatRule))
            occurrencesADay += rule->mostOccurrencesOnADay();
        dates += event->additional.size() + event->exDates.size();
        if (occurrencesADay > mostOccurrencesADay || dates > std::size_t(IcsBlocks::mostEvents))
            return Error{KWLocalizedString("The events of the calendar repeat too often.")};
        events.push_back(*std::move(event));
    }
    calendar.events = joinSeries(std::move(events), inForce);
    return calendar;
}
