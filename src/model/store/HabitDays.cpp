#include "model/store/HabitDays.h"

#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"

using namespace std::chrono;

namespace {

template <class Record>
QList<typename Record::Model> modelsBetween(const KWHabit &habit, const char *condition, Day first, Day last)
{
    return habit.context().models<Record>(
        {.where = condition, .values = {habit.sid(), DayStamp::fromDay(first), DayStamp::fromDay(last)}});
}

HabitDayState stateOf(const KWHabitCheckinModel &checkin)
{
    switch (checkin.status) {
    case KWHabitCheckinStatusDone:
        return HabitDayState::Done;
    case KWHabitCheckinStatusUnAchieved:
        return HabitDayState::UnAchieved;
    case KWHabitCheckinStatusNotDone:
        break;
    }
    return HabitDayState::Open;
}

// Calls `take` with the day among `inRow`, which follow each other, that the stamp names.
template <class Take>
void atStamp(QList<HabitDay> &inRow, int stamp, Take &&take)
{
    const std::optional<Day> day = DayStamp::toDay(stamp);
    if (day) take(inRow[(*day - inRow.first().day).count()]);
}

// Of an archived habit nothing is due behind the last day that was entered.
Day lastDueDay(const KWHabit &habit)
{
    if (!habit->isArchived) return Day::max();
    int last = 0;
    const auto lookAt = [&habit, &last]<class Record>(const QList<Record> &latest, int Record::*stamp) {
        if (!latest.isEmpty()) last = std::max(last, latest.first().*stamp);
    };
    const SqlCondition latest{.where = "habitID = ? AND isDeleted = 0", .values = {habit.sid()}, .limit = 1};
    SqlCondition checkins = latest, skips = latest;
    checkins.orderBy = "checkinStamp DESC";
    skips.orderBy = "stamp DESC";
    lookAt(habit.context().models<KWHabitCheckin>(checkins), &KWHabitCheckinModel::checkinStamp);
    lookAt(habit.context().models<KWHabitSkip>(skips), &KWHabitSkipModel::stamp);
    return DayStamp::toDay(last).value_or(Day::min());
}

bool standsOnCalendar(const HabitDay &day, const KWHabit &habit, Day today)
{
    switch (day.state) {
    case HabitDayState::Done:
    case HabitDayState::UnAchieved:
        return true;
    case HabitDayState::Skipped:
        return false;
    case HabitDayState::Open:
        break;
    }
    const bool isWeekly = habit.frequency().kind == HabitFrequency::Kind::Weekly;
    return isWeekly ? day.day == today && habit.isWantedOn(today) : day.isDue;
}

DatedThing thingOf(const KWHabit &habit, const HabitDay &day, const CXTimeZone &zone)
{
    const Instant start = zone.startOfDay(day.day);
    DatedThing thing;
    thing.kind = DatedThing::Kind::Habit;
    thing.sid = habit.sid();
    thing.occurrence = start;
    thing.title = habit->name;
    thing.color = habit->color;
    thing.isAllDay = true;
    thing.isClosed = day.state != HabitDayState::Open;
    thing.isReadOnly = true;
    thing.startDate = start;
    thing.endDate = zone.startOfDay(day.day + days{1});
    return thing;
}

} // namespace

QList<HabitDay> readHabitDays(const KWHabit &habit, Day first, Day last)
{
    const Day today = habit.today();
    const HabitFrequency frequency = habit.frequency();
    const Day begin = habit.firstDay(), end = lastDueDay(habit);
    QList<HabitDay> read;
    read.reserve((last - first).count() + 1);
    for (Day day = first; day <= last; day += days{1})
        read.append({.day = day,
                     .goal = habit->goal,
                     .isDue = frequency.isDueOn(day, begin) && day <= end,
                     .isOfWeek = frequency.kind == HabitFrequency::Kind::Weekly,
                     .isToCome = day > today});
    for (const auto &each : modelsBetween<KWHabitCheckin>(
             habit, "habitID = ? AND checkinStamp BETWEEN ? AND ? AND isDeleted = 0", first, last))
        atStamp(read, each.checkinStamp, [&](HabitDay &day) {
            day.state = stateOf(each);
            day.value = each.value;
            day.goal = each.goal;
        });
    for (const auto &each : modelsBetween<KWHabitSkip>(
             habit, "habitID = ? AND stamp BETWEEN ? AND ? AND isDeleted = 0", first, last))
        atStamp(read, each.stamp, [](HabitDay &day) { day.state = HabitDayState::Skipped; });
    for (const auto &each : modelsBetween<KWHabitRecord>(
             habit, "habitID = ? AND stamp BETWEEN ? AND ? AND isDeleted = 0", first, last))
        atStamp(read, each.stamp, [](HabitDay &day) { day.hasNote = true; });
    return read;
}

std::vector<DatedThing> readHabitThings(Day first, Day end, const QString &userID, ObjectContext &context)
{
    std::vector<DatedThing> things;
    const auto *settings = context.find<KWUserSettings>(userID);
    if (settings && !(*settings)->showsInCalendar) return things;
    const Day today = KWUserSettings::habitDayOfUser(userID, context);
    const CXTimeZone zone = context.clock().zone();
    for (const KWHabit *habit : KWHabit::fetchAll(userID, HabitScope::Active, context))
        for (const HabitDay &each : readHabitDays(*habit, first, end - days{1}))
            if (standsOnCalendar(each, *habit, today)) things.push_back(thingOf(*habit, each, zone));
    return things;
}
