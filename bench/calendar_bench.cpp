// The occurrences of 10,000 repeating tasks over half a year, in the store.

#include "Account.h"
#include "RuleMaker.h"
#include "calendar/RepeatInstanceRun.h"
#include "model/records/KWTask.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

const Instant from{sys_days{2029y / 11 / 15}};
const Instant to{sys_days{2030y / 5 / 15}};

struct RepeatingAccount : Account {
    RepeatingAccount()
    {
        fill([this](ObjectContext &context) {
            const QString zone = u"America/New_York"_s;
            RuleMaker rules;
            for (int i = 0; i < 10'000; ++i) {
                KWTaskModel task;
                task.userID = userID();
                task.projectID = KWProject::inboxIDOfUser(userID());
                task.title = u"Task %1"_s.arg(i);
                task.timeZone = zone;
                task.startDate = CXTimeZone::named(zone)->toInstant(rules.start());
                task.repeatRule = rules.mixed();
                context.insert<KWTask>(task);
            }
        });
    }

    void write(const KWCoreDataService::Block &block) const
    {
        if (!KWCoreDataService{kit->manager()}.sync_save(block)) std::abort();
    }
    bool run() const
    {
        bool generated = false;
        write([&](ObjectContext &context) -> Result<void> {
            const auto done =
                RepeatInstanceRun{{userID(), from, to}, context, [] { return false; }}.perform();
            if (!done) return done.error();
            generated = *done;
            return {};
        });
        return generated;
    }
    void forget() const
    {
        write([](ObjectContext &context) -> Result<void> {
            for (const char *table : {"repeatInstances", "repeatInstanceFetchFlags"})
                context.bulkWriting().execute((std::string{"DELETE FROM "} + table).c_str());
            return {};
        });
    }
    std::int64_t rows() const { return kit->context().number("SELECT count(*) FROM repeatInstances"); }
};

RepeatingAccount &account()
{
    static RepeatingAccount account;
    return account;
}

void generateHalfAYear(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        account().forget();
        state.ResumeTiming();
        if (!account().run()) std::abort();
    }
    state.SetItemsProcessed(state.iterations() * account().rows());
}
BENCHMARK(generateHalfAYear)->Unit(benchmark::kMillisecond)->Iterations(5);

// The rows that the measure above writes, by SQLite alone.
void insertTheSameRows(benchmark::State &state)
{
    if (account().rows() == 0 && !account().run()) std::abort();
    struct Row {
        std::string sid, userID, referenceID;
        std::int64_t type, start, end, time;
    };
    std::vector<Row> rows;
    auto statement = account().kit->context().connection().prepare(
        "SELECT sid, userID, referenceID, instanceType, startDate, endDate, createdTime FROM repeatInstances "
        "ORDER BY id");
    while (statement->executeStep()) {
        const auto text = [&](int column) { return statement->getColumn(column).getString(); };
        const auto number = [&](int column) { return statement->getColumn(column).getInt64(); };
        rows.push_back({text(0), text(1), text(2), number(3), number(4), number(5), number(6)});
    }
    statement->reset();
    for (auto _ : state) {
        state.PauseTiming();
        account().forget();
        state.ResumeTiming();
        account().write([&](ObjectContext &context) -> Result<void> {
            auto insert = context.bulkWriting().prepare(
                "INSERT INTO repeatInstances (sid, userID, etag, sortOrder, createdTime, modifiedTime, "
                "syncStatus, pendingChanges, isDeleted, referenceID, instanceType, startDate, endDate) "
                "VALUES (?, ?, '', 0, ?, ?, 1, 0, 0, ?, ?, ?, ?)");
            for (const Row &each : rows) {
                insert->bindNoCopy(1, each.sid);
                insert->bindNoCopy(2, each.userID);
                insert->bind(3, each.time);
                insert->bind(4, each.time);
                insert->bindNoCopy(5, each.referenceID);
                insert->bind(6, each.type);
                insert->bind(7, each.start);
                insert->bind(8, each.end);
                insert->exec();
                insert->reset();
            }
            return {};
        });
    }
    state.SetItemsProcessed(state.iterations() * std::int64_t(rows.size()));
}
BENCHMARK(insertTheSameRows)->Unit(benchmark::kMillisecond)->Iterations(5);

void askAgain(benchmark::State &state)
{
    account().forget();
    if (!account().run()) std::abort();
    for (auto _ : state)
        if (account().run()) std::abort();
}
BENCHMARK(askAgain)->Unit(benchmark::kMillisecond);

} // namespace
