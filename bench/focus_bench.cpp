// Ten years of focus, 20,000 sessions: the page, the statistics of a month, and a record that is added by
// hand and taken back.

#include "Account.h"
#include "focus/FocusReader.h"
#include "focus/FocusRecordEditor.h"
#include "model/records/KWTask.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int sessionCount = 20'000;
constexpr int taskCount = 500;
constexpr std::chrono::days daysKept{3650};

struct FocusAccount : Account {
    QStringList tasks;
    Instant last; ///< end of the latest session

    FocusAccount()
    {
        kit->account().refreshCurrentUser();
        last = clock.now() - 24h;
        fill([this](ObjectContext &context) {
            insertTags(20, context);
            const QStringList lists = insertLists(20, context);
            for (int i = 0; i < taskCount; ++i)
                insertTask(i, lists[i % lists.size()], context);
            for (int i = 0; i < sessionCount; ++i)
                insertSession(i, context);
        });
    }

    void insertTask(int number, const QString &list, ObjectContext &context)
    {
        KWTaskModel task;
        task.userID = userID();
        task.projectID = list;
        task.title = u"Task %1"_s.arg(number);
        task.tags = {u"tag%1"_s.arg(number % 20)};
        tasks.append(context.insert<KWTask>(std::move(task)).sid());
    }

    // Two stretches, of two tasks.
    void insertSession(int number, ObjectContext &context)
    {
        const Instant end = last - number * (std::chrono::milliseconds{daysKept} / sessionCount);
        const Instant middle = end - 10min;
        FocusRecord record{.startDate = end - 25min, .endDate = end};
        record.stretches = {{record.startDate, middle, FocusTarget::task(tasks[number % taskCount])},
                            {middle, end, FocusTarget::task(tasks[number * 7 % taskCount])}};
        FocusRecordWriter::insert(record, userID(), context);
    }
};

FocusAccount &account()
{
    static FocusAccount account;
    return account;
}

void page(benchmark::State &state)
{
    FocusAccount &ours = account();
    for (auto _ : state)
        benchmark::DoNotOptimize(FocusReader::readPage({}, ours.userID(), **ours.kit->store().makeContext()));
}
BENCHMARK(page)->Unit(benchmark::kMillisecond);

// Five years ago: nothing is near either end of the index.
void month(benchmark::State &state)
{
    FocusAccount &ours = account();
    const FocusPeriod period{.kind = FocusPeriod::Kind::Month, .offset = -60};
    for (auto _ : state)
        benchmark::DoNotOptimize(
            FocusReader::readStatistics(period, ours.userID(), **ours.kit->store().makeContext()));
}
BENCHMARK(month)->Unit(benchmark::kMillisecond);

// Each is a save of its own, so an iteration is two.
void addedAndTakenBack(benchmark::State &state)
{
    FocusAccount &ours = account();
    FocusRecordEditor editor{*ours.kit};
    const FocusRecordEditor::Entry entry{.target = FocusTarget::task(ours.tasks.first()),
                                         .startDate = ours.last + 1h,
                                         .endDate = ours.last + 2h};
    for (auto _ : state) {
        const auto made = editor.add(entry);
        if (!made || !made->undo.undo(ours.kit->manager())) {
            state.SkipWithError("the record was not stored and taken back");
            break;
        }
    }
}
BENCHMARK(addedAndTakenBack)->Unit(benchmark::kMillisecond);

} // namespace
