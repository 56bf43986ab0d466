#include "calendar/CalendarPageReader.h"

#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/store/FocusThings.h"
#include "model/store/HabitDays.h"
#include "model/store/ObjectContext.h"

#include <algorithm>
#include <tuple>

Result<CalendarPageContent> readCalendarPage(const CalendarPage &page, const QString &userID,
                                             const QSet<QString> &hiddenTasks, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    const auto configuration = KWCalendarDisplayConfiguration::ofUser(userID, context);
    const Instant from = zone.startOfDay(page.firstDay);
    const Instant to = zone.startOfDay(page.endDay());
    auto things = readDatedThings({.userID = userID,
                                   .from = from,
                                   .to = to,
                                   .includeCompleted = configuration.showsCompleted,
                                   .includeChecklist = configuration.showsChecklistItems,
                                   .includeRepeat = configuration.showsRepeats,
                                   .hiddenCalendars = configuration.hiddenCalendars,
                                   .hiddenLists = configuration.hiddenLists},
                                  context);
    if (!things) return things.error();

    CalendarPageContent content{.page = page, .today = context.clock().today()};
    content.items.reserve(things->size());
    const auto add = [&content, &zone](DatedThing &thing) {
        content.items.push_back(CalendarItem::ofThing(std::move(thing), zone));
    };
    for (DatedThing &each : *things)
        if (!hiddenTasks.contains(each.taskID)) add(each);
    for (DatedThing &each : readHabitThings(page.firstDay, page.endDay(), userID, context))
        add(each);
    if (configuration.showsFocus) {
        auto sessions =
            readFocusThings({.userID = userID, .from = from, .to = to}, configuration.hiddenLists, context);
        if (!sessions) return sessions.error();
        for (DatedThing &each : *sessions)
            add(each);
    }
    std::ranges::stable_sort(content.items, {}, [](const CalendarItem &item) {
        return std::tuple{item.start, item.rank(), -int(item.priority)};
    });

    content.layOut();
    return content;
}
