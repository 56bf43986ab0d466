#include "focus/FocusReader.h"

#include "focus/FocusNames.h"
#include "focus/FocusTally.h"
#include "model/records/DayStamp.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWPomoSettings.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "model/store/FocusRows.h"

#include <algorithm>
#include <span>

using namespace std::chrono;

namespace {

using Session = std::span<const FocusRow>;

// Calls `take` with the rows of each session.
template <class Take>
void forEachSession(const std::vector<FocusRow> &rows, Take &&take)
{
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::find_if(
            begin, rows.end(), [&](const FocusRow &each) { return each.sessionID != begin->sessionID; });
        take(Session{begin, end});
        begin = end;
    }
}

Result<std::vector<FocusRow>> rowsOf(const FocusDays &range, const QString &userID, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    return readFocusRows(
        {.userID = userID, .from = zone.startOfDay(range.first), .to = zone.startOfDay(range.end)}, context);
}

bool isPomo(const Session &session) { return session.front().type == KWFocusTypePomo; }

void tallySession(const Session &session, FocusDayTally &days)
{
    for (const FocusRow &each : session)
        days.add(each);
    if (isPomo(session)) days.addPomo(session.front().sessionStart);
}

FocusRecordRow recordRowOf(const Session &session, const FocusNames &names)
{
    const FocusRow &first = session.front();
    FocusRecordRow record{.recordID = first.sessionID,
                          .type = first.type,
                          .startDate = first.sessionStart,
                          .endDate = first.sessionEnd,
                          .pause = first.pause,
                          .sliceCount = int(session.size())};
    QList<milliseconds> lengths; // of the subjects
    milliseconds focused{0};
    for (const FocusRow &each : session) {
        const FocusSubject subject = names.subjectOf(each);
        qsizetype index = 0;
        while (index < record.subjects.size() && record.subjects[index].target != subject.target)
            ++index;
        if (index == record.subjects.size()) {
            record.subjects.append(subject);
            lengths.append(milliseconds{0});
        }
        lengths[index] += each.length();
        focused += each.length();
    }
    for (qsizetype i = 0; i < lengths.size(); ++i)
        record.subjects[i].focused = round<seconds>(lengths[i]);
    std::ranges::stable_sort(record.subjects, std::ranges::greater{}, &FocusSubject::focused);
    record.focused = round<seconds>(focused);
    return record;
}

Result<void> readRecords(const FocusPageRequest &request, const QString &userID, const FocusNames &names,
                         ObjectContext &context, FocusPageContent &page)
{
    const CXTimeZone zone = context.clock().zone();
    FocusRowsRequest wanted{.userID = userID, .from = Instant::min(), .to = Instant::max()};
    if (request.recordDays) {
        wanted.from = zone.startOfDay(request.recordDays->first);
        wanted.to = zone.startOfDay(request.recordDays->end);
    }
    const int limit = std::max(request.recordLimit, 1);
    const auto rows = readLatestFocusRows(wanted, limit + 1, context);
    if (!rows) return rows.error();
    forEachSession(*rows, [&](const Session &session) { page.records.append(recordRowOf(session, names)); });
    page.hasMoreRecords = page.records.size() > limit;
    if (page.hasMoreRecords) page.records.removeLast();
    return {};
}

Result<void> readWeek(const QString &userID, ObjectContext &context, FocusPageContent &page)
{
    const Day today = context.clock().today();
    const FocusDays range{today - days{6}, today + days{1}};
    const auto rows = rowsOf(range, userID, context);
    if (!rows) return rows.error();
    FocusDayTally tally{range, context.clock().zone()};
    forEachSession(*rows, [&](const Session &session) { tallySession(session, tally); });
    std::ranges::copy(tally.days(), page.week.begin());
    return {};
}

Result<FocusStatistics> statisticsOf(const FocusPeriod &period, const QString &userID,
                                     const FocusNames &names, ObjectContext &context)
{
    const CXTimeZone zone = context.clock().zone();
    FocusStatistics statistics{.period = period};
    statistics.range =
        period.days(context.clock().today(), KWUserSettings::firstWeekdayOfUser(userID, context));
    const auto rows = rowsOf(statistics.range, userID, context);
    if (!rows) return rows.error();

    FocusDayTally days{statistics.range, zone};
    FocusShareTally lists;
    FocusShareTally tags;
    milliseconds focused{0};
    forEachSession(*rows, [&](const Session &session) {
        tallySession(session, days);
        for (const FocusRow &each : session) {
            const milliseconds inRange = days.lengthInRange(each);
            focused += inRange;
            lists.add(names.listOf(each), each.length(), inRange);
            for (const FocusShare &tag : names.tagsOf(each))
                tags.add(tag, each.length(), inRange);
        }
        const bool counts =
            isPomo(session) && statistics.range.contains(zone.dayOf(session.front().sessionStart));
        lists.endSession(counts);
        tags.endSession(counts);
    });
    statistics.focused = round<seconds>(focused);
    statistics.days = days.days();
    for (const FocusDay &each : statistics.days)
        statistics.pomos += each.pomos;
    statistics.lists = lists.shares();
    statistics.tags = tags.shares();
    return statistics;
}

} // namespace

Result<FocusPageContent> FocusReader::readPage(const FocusPageRequest &request, const QString &userID,
                                               ObjectContext &context)
{
    FocusPageContent page;
    const auto *settings = context.find<KWPomoSettings>(userID);
    if (settings && settings->isNotDeleted()) {
        page.pomoGoal = std::max((*settings)->dailyPomoGoal, 0);
        page.focusGoal = minutes{std::max((*settings)->dailyFocusGoal, 0)};
    }
    const FocusNames names{userID, context};
    if (const auto read = readWeek(userID, context, page); !read) return read.error();
    if (const auto read = readRecords(request, userID, names, context, page); !read) return read.error();
    const auto statistics = statisticsOf(request.period, userID, names, context);
    if (!statistics) return statistics.error();
    page.statistics = *statistics;
    return page;
}

Result<FocusStatistics> FocusReader::readStatistics(const FocusPeriod &period, const QString &userID,
                                                    ObjectContext &context)
{
    return statisticsOf(period, userID, FocusNames{userID, context}, context);
}

std::optional<FocusOfTask> FocusReader::readTask(const QString &taskID, ObjectContext &context)
{
    const KWTask *task = context.find<KWTask>(taskID);
    if (!task || task->isDeleted()) return {};
    FocusOfTask focus{.estimatedPomos = (*task)->estimatedPomo,
                      .estimated = seconds{(*task)->estimatedDuration}};
    for (const KWFocusSummary *each : task->focusSummaries()) {
        focus.pomos += (*each)->pomoCount;
        focus.focused += seconds{(*each)->pomoDuration + (*each)->stopwatchDuration};
    }
    return focus;
}

std::optional<FocusOfHabit> FocusReader::readHabit(const QString &habitID, ObjectContext &context)
{
    const KWHabit *habit = context.find<KWHabit>(habitID);
    if (!habit || habit->isDeleted()) return {};
    const KWHabitFocus *today = habit->focusAtDateStamp(DayStamp::fromDay(habit->today()));
    return FocusOfHabit{
        .today = seconds{today ? (*today)->duration : 0},
        .inTotal = seconds{context.number(
            "SELECT sum(duration) FROM habitFocus WHERE habitID = ? AND isDeleted = 0", {habitID})}};
}
