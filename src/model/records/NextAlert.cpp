#include "model/records/NextAlert.h"

#include "corvexkit/alarm/CXAlarmTrigger.h"
#include "model/records/ZoneMove.h"

namespace {

void takeEarlier(std::optional<Instant> &next, std::optional<Instant> candidate, Instant after)
{
    if (candidate && *candidate > after && (!next || *candidate < *next)) next = candidate;
}

bool isAlive(const KWTaskModel &task)
{
    return task.status == KWTaskStatusOpen && !task.isTrashed && !task.isDeleted;
}

bool isAlive(const KWChecklistItemModel &item) { return !item.isCompleted() && !item.isDeleted; }

bool hasOtherAlerts(const KWTaskModel &before, const KWTaskModel &now)
{
    return before.startDate != now.startDate || before.isAllDay != now.isAllDay ||
           before.reminders != now.reminders || before.snoozedRemindDate != now.snoozedRemindDate ||
           before.timeZone != now.timeZone || before.isFloating != now.isFloating;
}

bool hasOtherAlerts(const KWChecklistItemModel &before, const KWChecklistItemModel &now)
{
    return before.startDate != now.startDate || before.isAllDay != now.isAllDay ||
           before.snoozedRemindDate != now.snoozedRemindDate;
}

template <class Twin>
bool needsAlert(const std::optional<Twin> &stored, const Twin &version)
{
    if (!isAlive(version)) return false;
    if (!stored) return !version.remindTime;
    return hasOtherAlerts(*stored, version) || !isAlive(*stored);
}

} // namespace

std::optional<Instant> nextAlert(const KWTaskModel &task, Instant after, const CXTimeZone &zone)
{
    if (!task.startDate) return std::nullopt;
    const CXTimeZone own = CXTimeZone::named(task.timeZone).value_or(zone);
    Instant start = *task.startDate;
    // A day that was set in another zone is the same day here.
    if (task.isAllDay) start = ZoneMove{ZoneMove::zoneOfDay(start, {zone, own}), zone}.day(start);
    const CXTimeZone &counted = task.isAllDay || task.isFloating ? zone : own;

    std::optional<Instant> next;
    takeEarlier(next, task.snoozedRemindDate, after);
    for (const QString &each : task.reminders)
        takeEarlier(next,
                    CXAlarmTrigger::triggerWithRepresentation(each, task.isAllDay)
                        .fireInstant(start, task.isAllDay, counted),
                    after);
    return next;
}

bool isAlert(const KWTaskModel &task, Instant moment, const CXTimeZone &zone)
{
    return nextAlert(task, moment - std::chrono::milliseconds{1}, zone) == moment;
}

std::optional<Instant> nextAlert(const KWChecklistItemModel &item, Instant after)
{
    if (!item.startDate) return std::nullopt;
    std::optional<Instant> next;
    takeEarlier(next, item.snoozedRemindDate, after);
    if (!item.isAllDay) takeEarlier(next, item.startDate, after);
    return next;
}

bool needsNewAlert(const std::optional<KWTaskModel> &stored, const KWTaskModel &task)
{
    return needsAlert(stored, task);
}

bool needsNewAlert(const std::optional<KWChecklistItemModel> &stored, const KWChecklistItemModel &item)
{
    return needsAlert(stored, item);
}
