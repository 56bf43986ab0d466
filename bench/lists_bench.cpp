// The shown list with 10,000 open tasks of 100,000: until its first rows are there, until all of it is read
// and cut into sections, after one task was changed elsewhere, and after a list as long was deleted.

#include "Account.h"
#include "lists/KWTaskListService.h"
#include "model/records/KWTask.h"
#include "model/store/KWProjectListCountFetcher.h"
#include "model/store/ListEditor.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int longList = 10'000;

struct LargeAccount : Account {
    std::unique_ptr<ObjectContext> elsewhere; // what it saves is told to nobody
    KWListIdentifier list;
    QString task;

    LargeAccount()
    {
        kit->account().refreshCurrentUser();
        fill([this](ObjectContext &context) { insertTasks(context); });
        auto context = kit->store().makeContext();
        if (!context || !kit->account().isSignedIn()) std::abort();
        elsewhere = std::move(*context);
    }

    void insertTasks(ObjectContext &context)
    {
        const QString user = userID();
        list = KWListIdentifier::project(KWProject::createProjectNamed(u"Long"_s, user, context).sid());
        const QString other = KWProject::createProjectNamed(u"Other"_s, user, context).sid();
        for (int i = 0; i < storedTasks; ++i) {
            KWTaskModel model;
            model.userID = user;
            model.title = u"Call the venue about chair number %1"_s.arg(i * 7919 % storedTasks);
            if (i % 3) model.startDate = clock.now() + std::chrono::hours{24} * (i % 60 - 5);
            model.priority = KWTaskPriorities[std::size_t(i) % 4];
            model.sortOrder = -i * KWSortOrderStep;
            model.projectID = i < longList ? list.entityID : other;
            if (i >= 2 * longList) {
                model.status = KWTaskStatusCompleted;
                model.completionDate = clock.now() - std::chrono::minutes{i};
            }
            const QString id = context.insert<KWTask>(std::move(model)).sid();
            if (i == longList / 2) task = id;
        }
    }
};

LargeAccount &account()
{
    static int arguments = 0;
    static QCoreApplication application{arguments, nullptr};
    static LargeAccount account;
    return account;
}

std::unique_ptr<KWTaskListService> makeService()
{
    OrvaneKit &kit = *account().kit;
    return std::make_unique<KWTaskListService>(kit.manager(), kit.account(), kit.center(), kit.bus());
}

void waitForAll(const KWTaskListService &service)
{
    while (service.rows().size() < longList)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void sortBy(KWTaskSortType sortType)
{
    auto service = makeService();
    service->select(account().list);
    if (!service->setSortType(sortType)) std::abort();
}

// The sort types, by the number of the benchmark's argument.
void everySortType(benchmark::internal::Benchmark *benchmark)
{
    for (const KWTaskSortType each : {KWTaskSortTypeCustom, KWTaskSortTypeDate, KWTaskSortTypePriority,
                                      KWTaskSortTypeTitle, KWTaskSortTypeTag})
        benchmark->Arg(each);
}

void selectALongList(benchmark::State &state)
{
    sortBy(KWTaskSortType(state.range()));
    for (auto _ : state) {
        auto service = makeService();
        service->select(account().list);
        benchmark::DoNotOptimize(service->categories());
        state.PauseTiming();
        waitForAll(*service);
        state.ResumeTiming();
    }
}
BENCHMARK(selectALongList)->Apply(everySortType)->Unit(benchmark::kMillisecond);

void readAllOfALongList(benchmark::State &state)
{
    sortBy(KWTaskSortType(state.range()));
    for (auto _ : state) {
        auto service = makeService();
        service->select(account().list);
        waitForAll(*service);
    }
}
BENCHMARK(readAllOfALongList)->Apply(everySortType)->Unit(benchmark::kMillisecond)->UseRealTime();

void takeOneTaskChangedElsewhere(benchmark::State &state)
{
    sortBy(KWTaskSortType(state.range()));
    auto service = makeService();
    service->select(account().list);
    waitForAll(*service);
    StoreChange change;
    change.of(RecordKind::Task).updated = {account().task};
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        account()
            .elsewhere->find<KWTask>(account().task)
            ->set(&KWTaskModel::title, QString::number(++number));
        if (!account().elsewhere->save()) state.SkipWithError("not saved");
        state.ResumeTiming();
        account().kit->bus().post(change);
    }
}
BENCHMARK(takeOneTaskChangedElsewhere)->Apply(everySortType)->Unit(benchmark::kMillisecond);

QString makeLongList()
{
    QString list;
    const auto made = KWCoreDataService{account().kit->manager()}.sync_save([&list](ObjectContext &context) {
        const QString user = account().kit->account().currentUserID();
        list = KWProject::createProjectNamed(u"Old"_s, user, context).sid();
        for (int i = 0; i < longList; ++i) {
            KWTaskModel model;
            model.userID = user;
            model.title = u"Return chair number %1"_s.arg(i);
            model.projectID = list;
            context.insert<KWTask>(std::move(model));
        }
        return Result<void>{};
    });
    return made ? list : QString{};
}

void endBackgroundWork()
{
    account().kit->manager().threadPool().waitForDone();
    QCoreApplication::processEvents();
}

// The main thread's part, with the sidebar counting and the list on show; "whole" is the wait for all of it.
void deleteALongList(benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::duration time) { return std::chrono::duration<double>(time).count(); };
    OrvaneKit &kit = *account().kit;
    ListEditor editor{kit.manager(), kit.account().currentUserID()};
    KWProjectListCountFetcher counts{kit.manager(), kit.center()};
    counts.updateCountCache(kit.account().currentUserID());
    double whole = 0;
    for (auto _ : state) {
        const QString list = makeLongList();
        auto service = makeService();
        service->select(KWListIdentifier::project(list));
        waitForAll(*service);
        endBackgroundWork();
        const auto begin = Clock::now();
        editor.deleteList(list, [&state](const Result<void> &done) {
            if (!done) state.SkipWithError("not deleted");
        });
        const auto called = Clock::now();
        kit.manager().threadPool().waitForDone();
        const auto deleted = Clock::now();
        QCoreApplication::processEvents();
        const auto end = Clock::now();
        state.SetIterationTime(seconds(called - begin + (end - deleted)));
        whole += seconds(end - begin);
        endBackgroundWork();
    }
    state.counters["whole"] = benchmark::Counter{whole, benchmark::Counter::kAvgIterations};
}
BENCHMARK(deleteALongList)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
