#include "model/store/TimeZoneAdaptation.h"

#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/ZoneMove.h"

namespace {

using Event = KWCalSubscriptionEventModel;

void move(Event &event, const CXTimeZone &from, const CXTimeZone &to)
{
    const ZoneMove zones{from, to};
    const auto moved = [&](Instant date) { return event.isAllDay ? zones.day(date) : zones.time(date); };
    const std::optional<Instant> start = event.startDate;
    for (std::optional<Instant> *each : {&event.startDate, &event.recurrenceID})
        if (*each) *each = moved(**each);
    if (event.endDate && event.isAllDay && start)
        event.endDate = zones.endOfDays(*event.endDate, *start);
    else if (event.endDate)
        event.endDate = zones.time(*event.endDate);
    for (Instant &each : event.exDates)
        each = moved(each);
    event.timeZone = to.identifier();
}

int adaptEvents(const CXTimeZone &lastLocalZone, ObjectContext &context)
{
    const CXTimeZone local = context.clock().zone();
    const QList<KWCalSubscriptionEvent *> events = context.fetch<KWCalSubscriptionEvent>(
        {.where = "(isAllDay = 1 OR isFloating = 1) AND timeZone <> ?", .values = {local.identifier()}});
    for (KWCalSubscriptionEvent *each : events) {
        Event event = each->model();
        move(event, CXTimeZone::named(event.timeZone).value_or(lastLocalZone), local);
        each->assign(event);
    }
    return int(events.size());
}

} // namespace

int adaptDatesToLocalTimeZone(const CXTimeZone &lastLocalZone, ObjectContext &context)
{
    // All at once, not one by one for the items.
    context.fetch<KWTask>(
        {.where = "sid IN (SELECT taskID FROM checklistItems WHERE startDate IS NOT NULL)"});
    int changed = adaptEvents(lastLocalZone, context);
    // Before their tasks, which still say in which zone they were set.
    for (KWChecklistItem *each : context.fetch<KWChecklistItem>(
             {.where = "startDate IS NOT NULL AND (isAllDay = 1 OR taskID IN (SELECT sid FROM tasks WHERE "
                       "isFloating = 1)) AND taskID IN (SELECT sid FROM tasks WHERE syncStatus <> 3)"}))
        changed += each->adaptToTimeZoneFromDesignatedToLocalIfNeeded(lastLocalZone);
    for (KWTask *each :
         context.fetch<KWTask>({.where = "startDate IS NOT NULL AND (isAllDay = 1 OR isFloating = 1) "
                                         "AND syncStatus <> 3"}))
        changed += each->adaptToTimeZoneFromDesignatedToLocalIfNeeded(lastLocalZone);
    return changed;
}
