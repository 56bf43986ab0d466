#include "model/records/KWHabit.h"

#include "model/records/DayStamp.h"
#include "model/records/HabitStreaks.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"

#include <algorithm>

namespace {

const char *conditionOf(HabitScope scope)
{
    switch (scope) {
    case HabitScope::Active:
        return "userID = ? AND isDeleted = 0 AND isArchived = 0";
    case HabitScope::Archived:
        return "userID = ? AND isDeleted = 0 AND isArchived = 1";
    case HabitScope::ActiveAndArchived:
        break;
    }
    return "userID = ? AND isDeleted = 0";
}

bool isDone(const KWHabitCheckinModel &checkin)
{
    return checkin.status == KWHabitCheckinStatusDone && !checkin.isDeleted;
}

// Those that the query finds and those made here that fit as well.
template <class Record>
QList<Record *> recordsOf(const KWHabit &habit, const SqlCondition &condition)
{
    QList<Record *> records = habit.context().fetch<Record>(condition);
    records << habit.context().inserted<Record>();
    records.removeIf(
        [&](const Record *each) { return each->model().habitID != habit.sid() || each->isDeleted(); });
    return records;
}

} // namespace

QList<KWHabit *> KWHabit::fetchAll(const QString &userID, HabitScope scope, ObjectContext &context)
{
    return context.fetch<KWHabit>({.where = conditionOf(scope),
                                   .values = {userID},
                                   .orderBy = "sortOrder, sid",
                                   .index = "habitsInOrder"});
}

int KWHabit::countOpenOn(Day day, const QString &userID, ObjectContext &context)
{
    const auto isOpen = [&](const KWHabit *habit) {
        if (!habit->isDueOn(day) || habit->isSkippedOn(day)) return false;
        const KWHabitCheckin *checkin = habit->checkInAtDateStamp(DayStamp::fromDay(day));
        return !checkin || (*checkin)->status == KWHabitCheckinStatusNotDone;
    };
    return int(std::ranges::count_if(fetchAll(userID, HabitScope::Active, context), isOpen));
}

bool KWHabit::isSkippedOn(Day day) const
{
    const auto isOfDay = [stamp = DayStamp::fromDay(day)](const KWHabitSkip *each) {
        return (*each)->stamp == stamp;
    };
    return std::ranges::any_of(skips(), isOfDay);
}

KWHabitCheckin *KWHabit::checkInAtDateStamp(int stamp) const
{
    const auto found = recordsOf<KWHabitCheckin>(
        *this, {.where = "habitID = ? AND checkinStamp = ? AND isDeleted = 0", .values = {sid(), stamp}});
    for (KWHabitCheckin *each : found)
        if ((*each)->checkinStamp == stamp) return each;
    return nullptr;
}

KWHabitCheckin &KWHabit::makeCheckInAtDateStamp(int stamp)
{
    if (KWHabitCheckin *present = checkInAtDateStamp(stamp)) return *present;
    KWHabitCheckinModel checkin;
    checkin.userID = model().userID;
    checkin.habitID = sid();
    checkin.checkinStamp = stamp;
    checkin.goal = model().goal;
    return context().insert<KWHabitCheckin>(std::move(checkin));
}

QList<KWHabitSkip *> KWHabit::skips() const
{
    return recordsOf<KWHabitSkip>(
        *this, {.where = "habitID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "stamp"});
}

void KWHabit::updateStreaks()
{
    HabitHistory history;
    history.done = doneDays();
    for (const KWHabitSkip *each : skips())
        if (const auto day = DayStamp::toDay((*each)->stamp)) history.skipped.insert(*day);
    history.today = context().clock().today();
    const KWHabitCheckin *today = checkInAtDateStamp(DayStamp::fromDay(history.today));
    history.isTodayUnAchieved = today && today->isMarkUnAchieved();
    history.firstDay = firstDay();
    history.firstWeekday = KWUserSettings::firstWeekdayOfUser(model().userID, context());

    const HabitStreaks streaks = HabitStreaks::of(history, frequency());
    set(&KWHabitModel::currentStreak, streaks.current);
    set(&KWHabitModel::longestStreak, streaks.longest);
}

// Many years of them: read as bare numbers, not as records.
std::set<Day> KWHabit::doneDays() const
{
    const QList<std::int64_t> stored = context().numbers(
        "SELECT checkinStamp FROM habitCheckins INDEXED BY habitCheckinsByDay WHERE habitID = ? AND "
        "isDeleted = 0 AND status = 2 ORDER BY checkinStamp",
        {sid()});
    std::set<std::int64_t> stamps{stored.begin(), stored.end()};
    QList<KWHabitCheckin *> changed = context().changed<KWHabitCheckin>();
    changed.removeIf([this](const KWHabitCheckin *each) { return (*each)->habitID != sid(); });
    for (const KWHabitCheckin *each : changed)
        if (const auto before = each->storedVersion(); before && isDone(*before))
            stamps.erase(before->checkinStamp);
    for (const KWHabitCheckin *each : changed)
        if (isDone(each->model()) && !each->isRemoved()) stamps.insert((*each)->checkinStamp);

    std::set<Day> days;
    for (const std::int64_t each : stamps)
        if (const auto day = DayStamp::toDay(each)) days.insert(days.end(), *day);
    return days;
}

Day KWHabit::firstDay() const
{
    const CXClock &clock = context().clock();
    return DayStamp::toDay(model().startStamp)
        .value_or(clock.zone().dayOf(model().createdTime.value_or(clock.now())));
}

// Written down, so that the days of a rule stay where they are when the person travels.
void KWHabit::willSave()
{
    if (model().startStamp == 0) set(&KWHabitModel::startStamp, DayStamp::fromDay(firstDay()));
}
