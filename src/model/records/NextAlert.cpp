#include "model/records/NextAlert.h"

#include "corvexkit/alarm/CXAlarmTrigger.h"
#include "model/records/ZoneMove.h"

#include <QTime>

using namespace Qt::StringLiterals;

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

bool isAlive(const KWHabitModel &habit) { return !habit.isArchived && !habit.isDeleted; }

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

bool hasOtherAlerts(const KWHabitModel &before, const KWHabitModel &now)
{
    return before.reminders != now.reminders || before.snoozedRemindDate != now.snoozedRemindDate;
}

// The reminders of a habit on one day, and those that were put off.
QList<Instant> alertsOn(Day day, const KWHabitModel &habit, const CXTimeZone &zone)
{
    QList<Instant> alerts;
    for (const QString &each : habit.reminders)
        if (const QTime time = QTime::fromString(each, u"HH:mm"_s); time.isValid())
            alerts.append(zone.toInstant(day + std::chrono::milliseconds{time.msecsSinceStartOfDay()}));
    if (habit.snoozedRemindDate) alerts.append(*habit.snoozedRemindDate);
    return alerts;
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

std::optional<Instant> nextAlert(const KWHabitModel &habit, Instant after, const CXTimeZone &zone)
{
    std::optional<Instant> next;
    for (const std::chrono::days later : {std::chrono::days{0}, std::chrono::days{1}})
        for (const Instant each : alertsOn(zone.dayOf(after) + later, habit, zone))
            takeEarlier(next, each, after);
    return next;
}

std::optional<Instant> lastAlert(const KWHabitModel &habit, Instant now, const CXTimeZone &zone)
{
    std::optional<Instant> last;
    for (const std::chrono::days before : {std::chrono::days{0}, std::chrono::days{1}})
        for (const Instant each : alertsOn(zone.dayOf(now) - before, habit, zone))
            if (each <= now && (!last || each > *last)) last = each;
    return last;
}

bool needsNewAlert(const std::optional<KWTaskModel> &stored, const KWTaskModel &task)
{
    return needsAlert(stored, task);
}

bool needsNewAlert(const std::optional<KWChecklistItemModel> &stored, const KWChecklistItemModel &item)
{
    return needsAlert(stored, item);
}

bool needsNewAlert(const std::optional<KWHabitModel> &stored, const KWHabitModel &habit)
{
    return needsAlert(stored, habit);
}
