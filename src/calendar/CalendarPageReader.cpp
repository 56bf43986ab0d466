#include "calendar/CalendarPageReader.h"

#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/store/DatedThings.h"
#include "model/store/ObjectContext.h"

#include <algorithm>

namespace {

// Less high than a line of text is nothing to read.
constexpr int shortestMinutes = 30;

KWCalendarDisplayConfigurationModel configurationOf(const QString &userID, ObjectContext &context)
{
    const auto *stored = context.find<KWCalendarDisplayConfiguration>(userID);
    return stored && stored->isNotDeleted() ? stored->model() : KWCalendarDisplayConfigurationModel{};
}

} // namespace

Result<CalendarPageContent> readCalendarPage(const CalendarPage &page, const QString &userID,
                                             const QSet<QString> &hiddenTasks, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    const KWCalendarDisplayConfigurationModel configuration = configurationOf(userID, context);
    auto things = readDatedThings({.userID = userID,
                                   .from = zone.startOfDay(page.firstDay),
                                   .to = zone.startOfDay(page.endDay()),
                                   .includeCompleted = configuration.showsCompleted,
                                   .includeChecklist = configuration.showsChecklistItems,
                                   .includeRepeat = configuration.showsRepeats,
                                   .hiddenCalendars = configuration.hiddenCalendars},
                                  context);
    if (!things) return things.error();

    CalendarPageContent content{.page = page, .today = context.clock().today()};
    content.items.reserve(things->size());
    for (DatedThing &each : *things)
        if (!hiddenTasks.contains(each.taskID))
            content.items.push_back(CalendarItem::ofThing(std::move(each), zone));
    std::ranges::stable_sort(content.items, {}, [](const CalendarItem &item) {
        return std::pair{item.start, -int(item.priority)};
    });

    if (page.kind == CalendarPage::Kind::Month) {
        content.bars = monthBars(content.items, page);
    } else {
        content.timed = timedBoxes(content.items, page, shortestMinutes);
        content.bars = allDayBars(content.items, page);
    }
    return content;
}
