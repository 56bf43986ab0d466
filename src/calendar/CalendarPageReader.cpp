#include "calendar/CalendarPageReader.h"

#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/store/DatedThings.h"
#include "model/store/HabitDays.h"
#include "model/store/ObjectContext.h"

#include <algorithm>
#include <tuple>

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
        if (!hiddenTasks.contains(each.taskID))
            content.items.push_back(CalendarItem::ofThing(std::move(each), zone));
    for (DatedThing &each : readHabitThings(page.firstDay, page.endDay(), userID, context))
        content.items.push_back(CalendarItem::ofThing(std::move(each), zone));
    std::ranges::stable_sort(content.items, {}, [](const CalendarItem &item) {
        return std::tuple{item.start, item.kind == CalendarItem::Kind::Habit, -int(item.priority)};
    });

    content.layOut();
    return content;
}
