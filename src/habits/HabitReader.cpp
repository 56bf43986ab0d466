#include "habits/HabitReader.h"

#include "habits/HabitWording.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"

#include <algorithm>

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

// Calls `take` with the day among `days`, which follow each other, that the stamp names.
template <class Take>
void atStamp(QList<HabitDay> &days, int stamp, Take &&take)
{
    const std::optional<Day> day = DayStamp::toDay(stamp);
    if (day) take(days[(*day - days.first().day).count()]);
}

void count(const HabitDay &day, Day today, HabitFigures &figures)
{
    const bool isDone = day.state == HabitDayState::Done;
    figures.done += isDone;
    figures.amount += day.value;
    const bool isOver =
        day.day < today || (day.day == today && (isDone || day.state == HabitDayState::UnAchieved));
    if (!day.isDue || day.state == HabitDayState::Skipped || !isOver) return;
    ++figures.due;
    figures.doneOfDue += isDone;
}

HabitFigures figuresOf(const QList<HabitDay> &days, Day today)
{
    HabitFigures figures;
    for (const HabitDay &each : days)
        count(each, today, figures);
    return figures;
}

HabitRow rowOf(const KWHabit &habit, Day today)
{
    HabitRow row{.habit = habit.model()};
    std::ranges::copy(HabitReader::readDays(habit, today - days{6}, today), row.week.begin());
    return row;
}

QList<HabitSection> emptySectionsOf(const QString &userID, ObjectContext &context)
{
    QList<HabitSection> sections;
    for (const KWHabitSection *each : KWHabitSection::ofUser(userID, context))
        sections.append({.sectionID = each->sid(), .name = HabitWording::sectionName((*each)->name)});
    sections.append({.sectionID = K_HABIT_SECTION_ID_OTHERS,
                     .name = HabitWording::sectionName(K_HABIT_SECTION_ID_OTHERS)});
    return sections;
}

// Whether the days of its week that a weekly habit asks for were done, before that day.
bool hasItsDaysOfTheWeek(const KWHabit &habit, Day day, const HabitDay &itself)
{
    const HabitFrequency frequency = habit.frequency();
    if (frequency.kind != HabitFrequency::Kind::Weekly || itself.state == HabitDayState::Done) return false;
    const auto first = KWUserSettings::firstWeekdayOfUser(habit->userID, habit.context());
    const QList<HabitDay> week = HabitReader::readDays(habit, day - (weekday{day} - first), day);
    return std::ranges::count(week, HabitDayState::Done, &HabitDay::state) >= frequency.timesInWeekly;
}

} // namespace

QList<HabitDay> HabitReader::readDays(const KWHabit &habit, Day first, Day last)
{
    const Day today = habit.today();
    const HabitFrequency frequency = habit.frequency();
    const Day begin = habit.firstDay();
    QList<HabitDay> read;
    read.reserve((last - first).count() + 1);
    for (Day day = first; day <= last; day += days{1})
        read.append({.day = day,
                     .goal = habit->goal,
                     .isDue = frequency.isDueOn(day, begin),
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

HabitPageContent HabitReader::readPage(const QString &userID, ObjectContext &context)
{
    HabitPageContent page{.today = KWUserSettings::habitDayOfUser(userID, context),
                          .sections = emptySectionsOf(userID, context)};
    for (const KWHabit *each : KWHabit::fetchAll(userID, HabitScope::ActiveAndArchived, context)) {
        HabitRow row = rowOf(*each, page.today);
        if ((*each)->isArchived) {
            page.archived.append(std::move(row));
            continue;
        }
        const auto found = std::ranges::find(page.sections, (*each)->sectionID, &HabitSection::sectionID);
        (found == page.sections.end() ? page.sections.last() : *found).rows.append(std::move(row));
    }
    return page;
}

std::optional<HabitDetailContent> HabitReader::readDetail(const QString &habitID, Day month,
                                                          ObjectContext &context)
{
    const KWHabit *habit = context.find<KWHabit>(habitID);
    if (!habit || habit->isDeleted()) return {};
    const year_month_day date{month};
    HabitDetailContent detail{.habit = habit->model(), .today = habit->today()};
    detail.month = Day{date.year() / date.month() / 1};
    detail.year = readDays(*habit, Day{date.year() / January / 1}, Day{date.year() / December / 31});
    const QList<HabitDay> ofMonth = detail.monthDays();
    detail.ofMonth = figuresOf(ofMonth, detail.today);
    detail.ofYear = figuresOf(detail.year, detail.today);
    detail.ofAll =
        figuresOf(readDays(*habit, std::min(habit->firstDay(), detail.today), detail.today), detail.today);
    for (const auto &each :
         modelsBetween<KWHabitRecord>(*habit, "habitID = ? AND stamp BETWEEN ? AND ? AND isDeleted = 0",
                                      ofMonth.first().day, ofMonth.last().day))
        if (const auto day = DayStamp::toDay(each.stamp)) detail.notes.append({*day, each.content});
    std::ranges::sort(detail.notes, {}, &HabitNote::day);
    return detail;
}

QList<HabitRow> HabitReader::readDueOn(Day day, const QString &userID, ObjectContext &context)
{
    QList<HabitRow> due;
    for (const HabitSection &section : readPage(userID, context).sections)
        for (const HabitRow &each : section.rows) {
            const KWHabit &habit = *context.find<KWHabit>(each.habit.sid);
            const HabitDay itself = readDays(habit, day, day).first();
            if (!itself.isDue || itself.state == HabitDayState::Skipped) continue;
            if (!hasItsDaysOfTheWeek(habit, day, itself)) due.append(each);
        }
    return due;
}
