#include "habits/HabitReader.h"

#include "habits/HabitWording.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWUserSettings.h"
#include "model/store/HabitDays.h"

#include <algorithm>

using namespace std::chrono;

namespace {

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

// A week asks for so many of its days. Before it is over, and where the range cuts it, it has not asked for
// more than were done.
void countWeeks(const QList<HabitDay> &range, const KWHabit &habit, HabitFigures &figures)
{
    const weekday firstWeekday = KWUserSettings::firstWeekdayOfUser(habit->userID, habit.context());
    const Day begin = std::max(range.first().day, habit.firstDay());
    figures.due = figures.doneOfDue = 0;
    for (auto first = range.begin(); first != range.end();) {
        const Day week = first->day - (weekday{first->day} - firstWeekday);
        const Day weekEnd = week + weeks{1};
        int done = 0, left = 0;
        auto each = first;
        for (; each != range.end() && each->day < weekEnd; ++each) {
            left += each->isDue && each->state != HabitDayState::Skipped;
            done += each->state == HabitDayState::Done;
        }
        first = each;
        const bool isWhole = weekEnd <= habit.today() && weekEnd <= range.last().day + days{1} &&
                             (week >= begin || begin == habit.firstDay());
        const int asked = std::min(habit.frequency().timesInWeekly, isWhole ? left : done);
        figures.due += asked;
        figures.doneOfDue += std::min(done, asked);
    }
}

HabitFigures figuresOf(const QList<HabitDay> &range, const KWHabit &habit)
{
    HabitFigures figures;
    for (const HabitDay &each : range)
        count(each, habit.today(), figures);
    if (range.first().isOfWeek) countWeeks(range, habit, figures);
    return figures;
}

HabitRow rowOf(const KWHabit &habit, Day today)
{
    HabitRow row{.habit = habit.model()};
    std::ranges::copy(readHabitDays(habit, today - days{6}, today), row.week.begin());
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

} // namespace

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
    detail.year = readHabitDays(*habit, Day{date.year() / January / 1}, Day{date.year() / December / 31});
    const QList<HabitDay> ofMonth = detail.monthDays();
    detail.ofMonth = figuresOf(ofMonth, *habit);
    detail.ofYear = figuresOf(detail.year, *habit);
    const QList<HabitDay> all =
        readHabitDays(*habit, std::min(habit->firstDay(), detail.today), detail.today);
    detail.ofAll = figuresOf(all, *habit);
    detail.ofToday = all.last();
    for (const KWHabitRecordModel &each :
         context.models<KWHabitRecord>({.where = "habitID = ? AND stamp BETWEEN ? AND ? AND isDeleted = 0",
         .values = {habitID, DayStamp::fromDay(ofMonth.first().day), DayStamp::fromDay(ofMonth.last().day)}}))
        if (const auto day = DayStamp::toDay(each.stamp)) detail.notes.append({*day, each.content});
    std::ranges::sort(detail.notes, {}, &HabitNote::day);
    return detail;
}
