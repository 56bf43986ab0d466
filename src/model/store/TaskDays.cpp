#include "model/store/TaskDays.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"

namespace {

// The same reading of the wall clock, on another day.
Instant movedTo(Day day, Day from, Instant instant, const CXTimeZone &zone)
{
    return zone.toInstant(zone.toLocal(instant) + (day - from));
}

} // namespace

void moveToDay(KWTask &task, Day day)
{
    const CXTimeZone zone = task.context().clock().zone();
    task.set(&KWTaskModel::timeZone, zone.identifier());
    task.set(&KWTaskModel::snoozedRemindDate, std::nullopt);
    const KWTaskModel before = task.model();
    if (!before.startDate) task.set(&KWTaskModel::isAllDay, true);
    if (!before.startDate || before.isAllDay)
        task.set(&KWTaskModel::startDate, std::optional{zone.startOfDay(day)});
    else
        task.set(&KWTaskModel::startDate,
                 std::optional{movedTo(day, zone.dayOf(*before.startDate), *before.startDate, zone)});
    if (!before.startDate || !before.endDate) return;
    const Day from = zone.dayOf(*before.startDate);
    const Day lastDay = zone.dayOf(*before.endDate) + (day - from);
    task.set(&KWTaskModel::endDate,
             std::optional{before.isAllDay ? zone.startOfDay(lastDay)
                                           : movedTo(day, from, *before.endDate, zone)});
}

void moveToDay(KWChecklistItem &item, Day day)
{
    const CXTimeZone zone = item.context().clock().zone();
    item.set(&KWChecklistItemModel::snoozedRemindDate, std::nullopt);
    const std::optional<Instant> before = item->startDate;
    if (!before) item.set(&KWChecklistItemModel::isAllDay, true);
    item.set(&KWChecklistItemModel::startDate,
             std::optional{!before || item->isAllDay ? zone.startOfDay(day)
                                                     : movedTo(day, zone.dayOf(*before), *before, zone)});
}

void clearDates(KWTask &task)
{
    for (const auto date : {&KWTaskModel::startDate, &KWTaskModel::endDate, &KWTaskModel::snoozedRemindDate})
        task.set(date, std::nullopt);
    task.set(&KWTaskModel::isAllDay, false);
    task.set(&KWTaskModel::repeatRule, QString{});
    task.set(&KWTaskModel::reminders, QStringList{});
}

void clearDates(KWChecklistItem &item)
{
    item.set(&KWChecklistItemModel::startDate, std::nullopt);
    item.set(&KWChecklistItemModel::snoozedRemindDate, std::nullopt);
    item.set(&KWChecklistItemModel::isAllDay, false);
}
