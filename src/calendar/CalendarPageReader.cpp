#include "calendar/CalendarPageReader.h"

#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/store/DatedThings.h"
#include "model/store/ObjectContext.h"

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
    case DatedThing::Kind::Event:
        break;
    }
    return CalendarItem::Kind::Event;
}

CalendarItem itemOf(DatedThing thing, const CXTimeZone &zone)
{
    CalendarItem item{
        .kind = kindOf(thing.kind),
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
        .isReadOnly = thing.isReadOnly,
        .start = zone.toLocal(thing.startDate),
        .end = zone.toLocal(thing.endDate.value_or(thing.startDate)),
    };
    if (item.isAllDay) {
        const Day first = floor<days>(item.start);
        item.start = first;
        item.end = std::max(first + days{1}, nearestDay(item.end));
    }
    return item;
}

} // namespace

Result<CalendarPageContent> readCalendarPage(const CalendarPage &page, const QString &userID,
                                             const QSet<QString> &hiddenTasks, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    const auto configuration = KWCalendarDisplayConfiguration::ofUser(userID, context);
    auto things = readDatedThings({.userID = userID,
                                   .from = zone.startOfDay(page.firstDay),
                                   .to = zone.startOfDay(page.endDay()),
                                   .includeCompleted = configuration.showsCompleted,
                                   .includeChecklist = configuration.showsChecklistItems,
                                   .includeRepeat = configuration.showsRepeats,
                                   .hiddenCalendars = configuration.hiddenCalendars,
                                   .hiddenLists = configuration.hiddenLists},
                                  context);
    if (!things) return things.error();

    CalendarPageContent content{.page = page, .today = context.clock().today()};
    content.items.reserve(things->size());
    for (DatedThing &each : *things)
        if (!hiddenTasks.contains(each.taskID)) content.items.push_back(itemOf(std::move(each), zone));
    std::ranges::stable_sort(content.items, {}, [](const CalendarItem &item) {
        return std::pair{item.start, -int(item.priority)};
    });

    content.layOut();
    return content;
}
