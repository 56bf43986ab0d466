// What the store costs beside bare SQLite: one task saved durably, and what the window reads first from
// a store of 100,000 tasks.

#include "Account.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/SearchTokenizer.h"
#include "model/store/SidebarCounts.h"
#include "model/store/TaskSearch.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cmath>
#include <random>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int tags = 300;

/// Words as texts have them: few are frequent, most are rare; one title in ten is of ideographs.
class Writer {
public:
    QString words(int count)
    {
        QStringList text;
        for (int i = 0; i < count; ++i)
            text << word(int(std::pow(5000.0, m_share(m_random))));
        return text.join(u' ');
    }
    QString title(int number)
    {
        if (number % 10 != 0) return words(6);
        QString text;
        for (int i = 0; i < 10; ++i)
            text += QChar(0x4e00 + int(std::pow(3000.0, m_share(m_random))));
        return text;
    }

private:
    static QString word(int rank)
    {
        QString text;
        for (int rest = rank + 20; rest > 0; rest /= 20)
            text += QChar(u"bcdfghjklmnprstvwyzq"[rest % 20]) + QString{u"aeiou"[(rest + rank) % 5]};
        return text;
    }

    std::mt19937 m_random{7};
    std::uniform_real_distribution<double> m_share{0, 1};
};

struct TaskAccount : Account {
    KWTaskModel task(int number) const
    {
        KWTaskModel model;
        model.userID = userID();
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
struct LargeAccount : TaskAccount {
    LargeAccount()
    {
        fill([this](ObjectContext &context) {
            Writer writer;
            const QStringList projects = insertLists(200, context);
            for (int i = 0; i < storedTasks; ++i) {
                KWTaskModel model = task(i);
                model.title = writer.title(i);
                if (i % 2) model.content = writer.words(40);
                if (i % 3) model.tags = {u"tag%1"_s.arg(i % tags), u"tag%1"_s.arg(i * 7 % tags)};
                model.priority = KWTaskPriorities[std::size_t(i) % KWTaskPriorities.size()];
                model.projectID = projects.at(i % projects.size());
                model.startDate = clock.now() + std::chrono::hours{i % 60 * 24};
                if (i >= openTasks) {
                    model.status = KWTaskStatusCompleted;
                    model.completionDate = model.startDate;
                }
                context.insert<KWTask>(std::move(model));
            }
        });
    }
};

LargeAccount &largeAccount()
{
    static LargeAccount account;
    return account;
}

void saveOneTask(benchmark::State &state)
{
    TaskAccount account;
    int number = 0;
    for (auto _ : state) {
        const auto saved =
            KWCoreDataService{account.kit->manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
                context.insert<KWTask>(account.task(++number));
                return {};
            });
        if (!saved) state.SkipWithError("not saved");
    }
}
BENCHMARK(saveOneTask)->Unit(benchmark::kMicrosecond);

// The same row through the bare C interface: BEGIN, one INSERT, COMMIT, with the same settings.
void rawTransaction(benchmark::State &state)
{
    TaskAccount account;
    sqlite3 *database = nullptr;
    sqlite3_open(account.kit->store().path().toUtf8().constData(), &database);
    sqlite3_exec(database, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
    registerSearchTokenizer(database); // the triggers need it
    const std::string inbox = KWProject::inboxIDOfUser(account.kit->account().currentUserID()).toStdString();
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
    LargeAccount &account = largeAccount();
    for (auto _ : state) {
        auto opening = OrvaneKit::open(account.kit->folders(), account.clock);
        if (!opening.kit) state.SkipWithError("not opened");
    }
}
BENCHMARK(openLargeStore)->Unit(benchmark::kMicrosecond);

void readRows(benchmark::State &state, const KWListIdentifier &list, std::int64_t limit)
{
    LargeAccount &account = largeAccount();
    const ListDataRequest request{account.kit->account().currentUserID(), list, limit};
    for (auto _ : state) {
        auto rows =
            KWListDataFetcher{account.clock}.reloadDataModel(request, account.kit->context().connection());
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK_CAPTURE(readRows, today, KWListIdentifier::todayProject(), 300)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readRows, all, KWListIdentifier::smartProject(KWSmartProject::all().identifier()), 300)
    ->Unit(benchmark::kMicrosecond);

const KWListIdentifier allTasks = KWListIdentifier::smartProject(KWSmartProject::all().identifier());

void readNarrowed(benchmark::State &state, const ListCondition &condition)
{
    LargeAccount &account = largeAccount();
    const ListDataRequest request{account.kit->account().currentUserID(), allTasks, 25, condition};
    for (auto _ : state) {
        auto rows =
            KWListDataFetcher{account.clock}.reloadDataModel(request, account.kit->context().connection());
        if (!rows || rows->isEmpty()) state.SkipWithError("no rows");
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK_CAPTURE(readNarrowed, priority, {.priority = KWTaskPriorityHigh})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readNarrowed, tag, {.tag = u"tag7"_s})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readNarrowed, word, {.text = Writer{}.words(1)})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(readNarrowed, wordOfTheFirst, {.text = QChar(0x4e01)})->Unit(benchmark::kMicrosecond);

void countSidebarCold(benchmark::State &state)
{
    LargeAccount &account = largeAccount();
    const QString user = account.userID();
    for (auto _ : state) {
        auto counts = SidebarCounts::read(user, account.clock, account.kit->context().connection());
        if (!counts) state.SkipWithError("not counted");
        benchmark::DoNotOptimize(counts);
    }
}
BENCHMARK(countSidebarCold)->Unit(benchmark::kMicrosecond);

void countSidebarAfterAChange(benchmark::State &state)
{
    LargeAccount &account = largeAccount();
    KWTaskModel task = account.task(1);
    task.tags = {u"tag1"_s, u"tag2"_s};
    const TaskMove leaves{TaskPlace::of(task), std::nullopt};
    const TaskMove returns{std::nullopt, TaskPlace::of(task)};
    auto counts = SidebarCounts::read(task.userID, account.clock, account.kit->context().connection());
    for (auto _ : state) {
        counts->apply({leaves});
        counts->apply({returns});
    }
}
BENCHMARK(countSidebarAfterAChange)->Unit(benchmark::kMicrosecond);

void search(benchmark::State &state, SearchScope scope, const QString &typed)
{
    LargeAccount &account = largeAccount();
    const TaskSearchRequest request{account.kit->account().currentUserID(), typed, scope};
    for (auto _ : state) {
        auto hits = TaskSearch::find(request, account.clock, account.kit->context().connection());
        if (!hits || hits->isEmpty()) state.SkipWithError("nothing found");
        benchmark::DoNotOptimize(hits);
    }
}
#define SEARCHES(name, typed)                                                                                \
    BENCHMARK_CAPTURE(search, titles_##name, SearchScope::Titles, typed)->Unit(benchmark::kMicrosecond);     \
    BENCHMARK_CAPTURE(search, everything_##name, SearchScope::TitlesAndContents, typed)                      \
        ->Unit(benchmark::kMicrosecond)
SEARCHES(oneLetter, u"b"_s);
SEARCHES(twoLetters, u"ba"_s);
SEARCHES(threeLetters, u"bac"_s);
SEARCHES(twoWords, Writer{}.words(2));
SEARCHES(twoBeginnings, u"ba c"_s);
SEARCHES(ideograph, QString{QChar(0x4e01)});
SEARCHES(ideographs, (QString{QChar(0x4e01)} + QChar(0x4e02)));
#undef SEARCHES

void completeAndReopen(benchmark::State &state)
{
    LargeAccount &account = largeAccount();
    const auto rows = KWListDataFetcher{account.clock}.reloadDataModel(
        {account.kit->account().currentUserID(), allTasks, 1}, account.kit->context().connection());
    KWTaskTicker ticker{account.kit->manager()};
    for (auto _ : state)
        if (!ticker.tick({rows->first().sid})) state.SkipWithError("not saved");
}
BENCHMARK(completeAndReopen)->Unit(benchmark::kMicrosecond);

} // namespace
