// What the store costs beside bare SQLite: one task saved durably, and what the window reads first from
// a store of 100,000 tasks.

#include "corvexkit/time/SystemClock.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWListDataFetcher.h"

#include <QLocale>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int lists = 200;

struct Home {
    QTemporaryDir folder;
    SystemClock clock{CXTimeZone::utc()};
    std::unique_ptr<OrvaneKit> kit;

    Home()
    {
        kit = OrvaneKit::open(DataFolders::locate(folder.path()), clock).kit;
        if (!kit || !kit->account().openLocalAccount(QLocale::c())) std::abort();
    }

    KWTaskModel task(int number) const
    {
        KWTaskModel model;
        model.userID = kit->account().currentUserID();
        model.projectID = KWProject::inboxIDOfUser(model.userID);
        model.title = u"Call the venue about chair number %1"_s.arg(number);
        model.startDate = clock.now() + std::chrono::hours{24};
        model.timeZone = u"UTC"_s;
        model.reminders = {u"TRIGGER:PT0S"_s};
        model.sortOrder = -number * KWSortOrderStep;
        return model;
    }
};

// As a large account is: most tasks done, the open ones spread over lists and two months.
struct LargeHome : Home {
    LargeHome()
    {
        const auto filled =
            KWCoreDataService{kit->manager()}.sync_save([this](ObjectContext &context) -> Result<void> {
                const QString user = kit->account().currentUserID();
                QStringList projects;
                for (int i = 0; i < lists; ++i)
                    projects.append(KWProject::createProjectNamed(u"List %1"_s.arg(i), user, context).sid());
                for (int i = 0; i < storedTasks; ++i) {
                    KWTaskModel model = task(i);
                    model.projectID = projects.at(i % lists);
                    model.startDate = clock.now() + std::chrono::hours{i % 60 * 24};
                    if (i >= openTasks) {
                        model.status = KWTaskStatusCompleted;
                        model.completionDate = model.startDate;
                    }
                    context.insert<KWTask>(std::move(model));
                }
                return {};
            });
        if (!filled) std::abort();
    }
};

LargeHome &largeHome()
{
    static LargeHome home;
    return home;
}

void saveOneTask(benchmark::State &state)
{
    Home home;
    int number = 0;
    for (auto _ : state) {
        const auto saved =
            KWCoreDataService{home.kit->manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
                context.insert<KWTask>(home.task(++number));
                return {};
            });
        if (!saved) state.SkipWithError("not saved");
    }
}
BENCHMARK(saveOneTask)->Unit(benchmark::kMicrosecond);

// The same row through the bare C interface: BEGIN, one INSERT, COMMIT, with the same settings.
void rawTransaction(benchmark::State &state)
{
    Home home;
    sqlite3 *database = nullptr;
    sqlite3_open(home.kit->store().path().toUtf8().constData(), &database);
    sqlite3_exec(database, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
    const std::string inbox = KWProject::inboxIDOfUser(home.kit->account().currentUserID()).toStdString();
    const std::string sql = "INSERT INTO tasks (sid, userID, etag, sortOrder, createdTime, modifiedTime, "
                            "syncStatus, pendingChanges, isDeleted,"
                            " title, content, \"desc\", kind, status, priority, progress, projectID, "
                            "columnID, parentId, childIds, tags,"
                            " startDate, endDate, isAllDay, serverStartDate, serverEndDate, timeZone, "
                            "isFloating, repeatRule, repeatFrom,"
                            " exDates, reminders, remindTime, snoozedRemindDate, completionDate, assignee, "
                            "pinnedDate, estimatedPomo,"
                            " estimatedDuration, isTrashed) VALUES (?1, 'user', '', 1, 1, 1, 1, 0, 0, 'Call "
                            "the venue about chair number 1',"
                            " '', '', 'TEXT', 0, 0, 0, '" +
                            inbox +
                            "', '', '', '[]', '[]', 1800000000000, NULL, 0, NULL, NULL, 'UTC', 0, '',"
                            " 'DEFAULT', '[]', '[\"TRIGGER:PT0S\"]', NULL, NULL, NULL, -1, NULL, 0, 0, 0)";
    sqlite3_stmt *insert = nullptr;
    sqlite3_prepare_v2(database, sql.c_str(), -1, &insert, nullptr);
    int number = 0;
    for (auto _ : state) {
        const std::string id = "task" + std::to_string(++number);
        sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_text(insert, 1, id.c_str(), -1, SQLITE_TRANSIENT);
        if (sqlite3_step(insert) != SQLITE_DONE) state.SkipWithError(sqlite3_errmsg(database));
        sqlite3_reset(insert);
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    }
    sqlite3_finalize(insert);
    sqlite3_close(database);
}
BENCHMARK(rawTransaction)->Unit(benchmark::kMicrosecond);

void openLargeStore(benchmark::State &state)
{
    LargeHome &home = largeHome();
    for (auto _ : state) {
        auto opening = OrvaneKit::open(home.kit->folders(), home.clock);
        if (!opening.kit) state.SkipWithError("not opened");
    }
}
BENCHMARK(openLargeStore)->Unit(benchmark::kMicrosecond);

void readRows(benchmark::State &state, const KWListIdentifier &list, std::int64_t limit)
{
    LargeHome &home = largeHome();
    const ListDataRequest request{home.kit->account().currentUserID(), list, limit};
    for (auto _ : state) {
        auto rows = KWListDataFetcher{home.clock}.reloadDataModel(request, home.kit->context().connection());
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK_CAPTURE(readRows, today, KWListIdentifier::todayProject(), 300)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readRows, all, KWListIdentifier::smartProject(KWSmartProject::all().identifier()), 300)
    ->Unit(benchmark::kMicrosecond);

void countAllLists(benchmark::State &state)
{
    LargeHome &home = largeHome();
    const QString user = home.kit->account().currentUserID();
    const auto projects = KWProject::findProjectsOfUser(user, ProjectScope::Open, home.kit->context());
    for (auto _ : state)
        for (const KWProject *each : projects)
            if (!KWListDataFetcher{home.clock}.count({user, KWListIdentifier::project(each->sid())},
                                                     home.kit->context().connection()))
                state.SkipWithError("not counted");
}
BENCHMARK(countAllLists)->Unit(benchmark::kMicrosecond);

} // namespace
