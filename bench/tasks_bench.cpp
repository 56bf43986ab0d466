// What is done to tasks in a store of 100,000: ticking and taking it back, moving, deleting and emptying the
// trash, reading a tree of subtasks. Each is one durable save, but for the reading.

#include "Account.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/store/FindAll.h"
#include "model/store/KWTaskMover.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/KWTrashDataService.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int moved = 1'000;

struct LargeAccount : Account {
    QStringList projects;
    QStringList plain;
    QString repeating;

    LargeAccount()
    {
        fill([this](ObjectContext &context) { insertTasks(context); });
    }

    KWTaskModel task(int number) const
    {
        KWTaskModel model;
        model.userID = userID();
        model.title = u"Call the venue about chair number %1"_s.arg(number);
        model.startDate = clock.now() + std::chrono::hours{24 + number % 60 * 24};
        model.timeZone = u"UTC"_s;
        model.reminders = {u"TRIGGER:PT0S"_s};
        model.sortOrder = -number * KWSortOrderStep;
        return model;
    }

    void insertTasks(ObjectContext &context)
    {
        projects = insertLists(200, context);
        for (int i = 0; i < storedTasks; ++i) {
            KWTaskModel model = task(i);
            model.projectID = projects.at(i % projects.size());
            if (i >= openTasks) {
                model.status = KWTaskStatusCompleted;
                model.completionDate = model.startDate;
            }
            const QString id = context.insert<KWTask>(std::move(model)).sid();
            if (i < moved) plain.append(id);
        }
        KWTaskModel model = task(storedTasks);
        model.projectID = projects.first();
        model.repeatRule = u"FREQ=DAILY"_s;
        repeating = context.insert<KWTask>(std::move(model)).sid();
        for (int i = 0; i < 5; ++i) {
            KWChecklistItemModel item;
            item.taskID = repeating;
            item.title = u"Item"_s;
            context.insert<KWChecklistItem>(std::move(item));
        }
    }
};

LargeAccount &account()
{
    static LargeAccount account;
    return account;
}

void tickOneTask(benchmark::State &state)
{
    KWTaskTicker ticker{account().kit->manager()};
    for (auto _ : state)
        if (!ticker.tick({account().plain.first()})) state.SkipWithError("not ticked");
}
BENCHMARK(tickOneTask)->Unit(benchmark::kMicrosecond);

void tickARepeatingTaskAndUndo(benchmark::State &state)
{
    KWTaskTicker ticker{account().kit->manager()};
    for (auto _ : state) {
        const auto ticked = ticker.tick({account().repeating});
        if (!ticked || !ticker.undo(ticked->undo)) state.SkipWithError("not ticked");
    }
}
BENCHMARK(tickARepeatingTaskAndUndo)->Unit(benchmark::kMicrosecond);

void moveAThousandTasks(benchmark::State &state)
{
    KWTaskMover mover{account().kit->manager()};
    int list = 0;
    for (auto _ : state)
        if (!mover.move(account().plain, account().projects.at(++list % account().projects.size()),
                        KWTaskMover::From::Lists))
            state.SkipWithError("not moved");
}
BENCHMARK(moveAThousandTasks)->Unit(benchmark::kMillisecond);

void trashAThousandTasksAndEmptyTheTrash(benchmark::State &state)
{
    KWCoreDataManager &manager = account().kit->manager();
    KWTrashDataService trash{manager, account().kit->account()};
    for (auto _ : state) {
        state.PauseTiming();
        QStringList ids;
        const auto made = KWCoreDataService{manager}.sync_save([&ids](ObjectContext &context) {
            for (int i = 0; i < moved; ++i) {
                KWTaskModel model = account().task(i);
                model.projectID = account().projects.first();
                ids.append(context.insert<KWTask>(std::move(model)).sid());
            }
            return Result<void>{};
        });
        state.ResumeTiming();
        const auto trashed = KWCoreDataService{manager}.sync_save([&ids](ObjectContext &context) {
            KWTask::trashTaskAndDescendants(findAll<KWTask>(ids, context), context);
            return Result<void>{};
        });
        if (!made || !trashed || !trash.empty()) state.SkipWithError("not deleted");
    }
}
BENCHMARK(trashAThousandTasksAndEmptyTheTrash)->Unit(benchmark::kMillisecond);

void plantATree(benchmark::State &state)
{
    ObjectContext &context = account().kit->context();
    KWTask *task = context.find<KWTask>(account().plain.first());
    for (auto _ : state)
        benchmark::DoNotOptimize(KWTaskItemTree::plant(*task, context));
}
BENCHMARK(plantATree)->Unit(benchmark::kMicrosecond);

} // namespace
