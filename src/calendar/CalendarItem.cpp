#include "calendar/CalendarItem.h"

#include "model/store/DatedThings.h"
#include "model/store/KWTaskListItemModel.h"

#include <algorithm>

using namespace std::chrono;

namespace {

// A day that is an hour longer or shorter ends at midnight all the same.
Day nearestDay(LocalTime time) { return floor<days>(time + 12h); }

CalendarItem::Kind kindOf(DatedThing::Kind kind)
{
    switch (kind) {
    case DatedThing::Kind::Task:
        return CalendarItem::Kind::Task;
    case DatedThing::Kind::ChecklistItem:
        return CalendarItem::Kind::ChecklistItem;
    case DatedThing::Kind::Habit:
        return CalendarItem::Kind::Habit;
    case DatedThing::Kind::Focus:
        return CalendarItem::Kind::Focus;
    case DatedThing::Kind::Event:
        break;
    }
    return CalendarItem::Kind::Event;
}

void setDates(CalendarItem &item, Instant startDate, const std::optional<Instant> &endDate,
              const CXTimeZone &zone)
{
    item.start = zone.toLocal(startDate);
    item.end = zone.toLocal(endDate.value_or(startDate));
    if (!item.isAllDay) return;
    const Day first = floor<days>(item.start);
    item.start = first;
    item.end = std::max(first + days{1}, nearestDay(item.end));
}

} // namespace

CalendarItem CalendarItem::ofThing(DatedThing thing, const CXTimeZone &zone)
{
    CalendarItem item{.kind = kindOf(thing.kind),
                      .entityID = std::move(thing.sid),
                      .taskID = std::move(thing.taskID),
                      .occurrence = thing.occurrence,
                      .listID = std::move(thing.listID),
                      .title = std::move(thing.title),
                      .color = std::move(thing.color),
                      .priority = thing.priority,
                      .isAllDay = thing.isAllDay,
                      .repeats = thing.repeats,
                      .isClosed = thing.isClosed,
                      .isReadOnly = thing.isReadOnly};
    setDates(item, thing.startDate, thing.endDate, zone);
    return item;
}

CalendarItem CalendarItem::ofEventRow(const KWTaskListItemModel &event, const CXTimeZone &zone)
{
    CalendarItem item{.kind = Kind::Event,
                      .entityID = event.ownerID,
                      .listID = event.projectID,
                      .title = event.title,
                      .color = event.color,
                      .isAllDay = event.isAllDay,
                      .repeats = event.repeats,
                      .isReadOnly = true};
    setDates(item, event.startDate.value_or(Instant{}), event.endDate, zone);
    return item;
}
