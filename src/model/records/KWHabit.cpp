#include "model/records/KWHabit.h"

#include "model/records/DayStamp.h"
#include "model/records/HabitStreaks.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"
#include "model/records/NextAlert.h"

#include <algorithm>
#include <set>

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

template <class Record>
Record *firstOfDay(const QList<Record *> &records, int stamp)
{
    const auto found = std::ranges::find(records, stamp, [](const Record *each) { return (*each)->stamp; });
    return found == records.end() ? nullptr : *found;
}

} // namespace

QList<KWHabit *> KWHabit::fetchAll(const QString &userID, HabitScope scope, ObjectContext &context)
{
    return context.fetch<KWHabit>({.where = conditionOf(scope),
                                   .values = {userID},
                                   .orderBy = "sortOrder, sid",
                                   .index = "habitsInOrder"});
}

int KWHabit::countOpenToday(const QString &userID, ObjectContext &context)
{
    const Day day = KWUserSettings::habitDayOfUser(userID, context);
    return int(std::ranges::count_if(fetchAll(userID, HabitScope::Active, context),
                                     [day](const KWHabit *each) { return each->isOpenOn(day); }));
}

bool KWHabit::isSkippedOn(Day day) const { return skipAtDateStamp(DayStamp::fromDay(day)); }

bool KWHabit::isWantedOn(Day day) const
{
    if (!isDueOn(day) || isSkippedOn(day)) return false;
    const HabitFrequency own = frequency();
    if (own.kind != HabitFrequency::Kind::Weekly) return true;
    const auto first = KWUserSettings::firstWeekdayOfUser(model().userID, context());
    const auto done = doneDaysSince(day - (std::chrono::weekday{day} - first));
    return std::ranges::count_if(done, [day](Day each) { return each < day; }) < own.timesInWeekly;
}

bool KWHabit::isOpenOn(Day day) const
{
    const KWHabitCheckin *checkin = checkInAtDateStamp(DayStamp::fromDay(day));
    return (!checkin || (*checkin)->status == KWHabitCheckinStatusNotDone) && isWantedOn(day);
}

Day KWHabit::today() const { return KWUserSettings::habitDayOfUser(model().userID, context()); }

KWHabitCheckin *KWHabit::checkInAtDateStamp(int stamp) const
{
    const auto found = recordsOf<KWHabitCheckin>(
        *this, {.where = "habitID = ? AND checkinStamp = ? AND isDeleted = 0", .values = {sid(), stamp}});
    const auto stampOf = [](const KWHabitCheckin *each) { return (*each)->checkinStamp; };
    const auto ofDay = std::ranges::find(found, stamp, stampOf);
    return ofDay == found.end() ? nullptr : *ofDay;
}

QList<KWHabitCheckin *> KWHabit::checkInsBetween(Day first, Day last) const
{
    return recordsOf<KWHabitCheckin>(
        *this, {.where = "habitID = ? AND checkinStamp BETWEEN ? AND ? AND isDeleted = 0",
                .values = {sid(), DayStamp::fromDay(first), DayStamp::fromDay(last)},
                .orderBy = "checkinStamp"});
}

KWHabitCheckin &KWHabit::makeCheckInAtDateStamp(int stamp)
{
    if (KWHabitCheckin *present = checkInAtDateStamp(stamp)) return *present;
    if (const auto day = DayStamp::toDay(stamp)) beginNoLaterThan(*day);
    KWHabitCheckinModel checkin;
    checkin.userID = model().userID;
    checkin.habitID = sid();
    checkin.checkinStamp = stamp;
    checkin.goal = model().goal;
    return context().insert<KWHabitCheckin>(std::move(checkin));
}

KWHabitRecord *KWHabit::recordAtDateStamp(int stamp) const
{
    const auto found = recordsOf<KWHabitRecord>(
        *this, {.where = "habitID = ? AND stamp = ? AND isDeleted = 0", .values = {sid(), stamp}});
    return firstOfDay(found, stamp);
}

KWHabitSkip *KWHabit::skipAtDateStamp(int stamp) const
{
    const auto found = recordsOf<KWHabitSkip>(
        *this, {.where = "habitID = ? AND stamp = ? AND isDeleted = 0", .values = {sid(), stamp}});
    return firstOfDay(found, stamp);
}

QList<KWHabitSkip *> KWHabit::skips() const
{
    return recordsOf<KWHabitSkip>(
        *this, {.where = "habitID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "stamp"});
}

KWHabitFocus *KWHabit::focusAtDateStamp(int stamp) const
{
    const auto found = recordsOf<KWHabitFocus>(
        *this, {.where = "habitID = ? AND stamp = ? AND isDeleted = 0", .values = {sid(), stamp}});
    return firstOfDay(found, stamp);
}

void KWHabit::appendTimeInerval(std::int64_t seconds, int stamp)
{
    KWHabitFocus *ofDay = focusAtDateStamp(stamp);
    const std::int64_t before = ofDay ? (*ofDay)->duration : 0;
    const std::int64_t after = std::max<std::int64_t>(before + seconds, 0);
    if (after == before) return;
    if (!ofDay) {
        KWHabitFocusModel focus;
        focus.userID = model().userID;
        focus.habitID = sid();
        focus.stamp = stamp;
        ofDay = &context().insert<KWHabitFocus>(std::move(focus));
    }
    ofDay->set(&KWHabitFocusModel::duration, after);
    markUpdate();
}

void KWHabit::updateStreaks()
{
    const HabitStreaks streaks = HabitStreaks::of(historySince(Day::min()), frequency());
    set(&KWHabitModel::currentStreak, streaks.current);
    set(&KWHabitModel::longestStreak, streaks.longest);
}

void KWHabit::updateStreaksAround(Day day)
{
    const auto stored = storedVersion();
    const bool isByTheSameRule =
        stored && stored->repeatRule == model().repeatRule && stored->startStamp == model().startStamp;
    if (!isByTheSameRule) return updateStreaks();
    const HabitStreaks before{.current = model().currentStreak, .longest = model().longestStreak};
    for (const std::chrono::days past : {std::chrono::days{60}, std::chrono::days{600}}) {
        const HabitHistory around = historySince(std::min(day, today()) - past);
        const auto streaks = before.afterChangeOf(day, around, frequency());
        if (!streaks) continue;
        set(&KWHabitModel::currentStreak, streaks->current);
        set(&KWHabitModel::longestStreak, streaks->longest);
        return;
    }
    updateStreaks();
}

HabitHistory KWHabit::historySince(Day since) const
{
    HabitHistory history;
    history.since = since;
    history.done = doneDaysSince(since);
    for (const KWHabitSkip *each : skips())
        if (const auto day = DayStamp::toDay((*each)->stamp)) history.skipped.push_back(*day);
    std::ranges::sort(history.skipped);
    history.today = today();
    const KWHabitCheckin *checkin = checkInAtDateStamp(DayStamp::fromDay(history.today));
    history.isTodayUnAchieved = checkin && checkin->isMarkUnAchieved();
    history.firstDay = firstDay();
    history.firstWeekday = KWUserSettings::firstWeekdayOfUser(model().userID, context());
    return history;
}

// Many years of them: read as bare numbers, not as records.
std::vector<Day> KWHabit::doneDaysSince(Day since) const
{
    const auto first = std::max(since, *DayStamp::toDay(1'01'01));
    const QList<std::int64_t> stored = context().numbers(
        "SELECT checkinStamp FROM habitCheckins INDEXED BY habitCheckinsByDay WHERE habitID = ? AND "
        "checkinStamp >= ? AND isDeleted = 0 AND status = 2 ORDER BY checkinStamp",
        {sid(), DayStamp::fromDay(first)});
    std::set<std::int64_t> stamps{stored.begin(), stored.end()};
    QList<KWHabitCheckin *> changed = context().changed<KWHabitCheckin>();
    changed.removeIf([this](const KWHabitCheckin *each) { return (*each)->habitID != sid(); });
    for (const KWHabitCheckin *each : changed)
        if (const auto before = each->storedVersion(); before && isDone(*before))
            stamps.erase(before->checkinStamp);
    for (const KWHabitCheckin *each : changed)
        if (isDone(each->model()) && !each->isRemoved()) stamps.insert((*each)->checkinStamp);

    std::vector<Day> days;
    for (const std::int64_t each : stamps)
        if (const auto day = DayStamp::toDay(each); day && *day >= since) days.push_back(*day);
    return days;
}

Day KWHabit::firstDay() const
{
    const CXClock &clock = context().clock();
    return DayStamp::toDay(model().startStamp)
        .value_or(clock.zone().dayOf(model().createdTime.value_or(clock.now())));
}

// By whole intervals, so that the days on which it is due stay.
void KWHabit::beginNoLaterThan(Day day)
{
    const Day first = firstDay();
    if (day >= first) return;
    const std::chrono::days interval{frequency().interval};
    const auto intervals = (first - day + interval - std::chrono::days{1}) / interval;
    set(&KWHabitModel::startStamp, DayStamp::fromDay(first - intervals * interval));
}

// Written down, so that the days of a rule stay where they are when the person travels.
void KWHabit::willSave()
{
    if (model().startStamp == 0) set(&KWHabitModel::startStamp, DayStamp::fromDay(firstDay()));
    if (needsNewAlert(storedVersion(), model()))
        set(&KWHabitModel::remindTime, nextAlert(model(), context().clock().now(), context().clock().zone()));
}

bool KWHabit::isModified() const { return !differsInAlertAlone(storedVersion(), model()); }
