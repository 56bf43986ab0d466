// What to focus on, out of 100,000 open tasks: read in the background, and what a key costs on the main
// thread once it is found.

#include "Account.h"
#include "focus/FocusTargetChoices.h"
#include "model/records/KWTask.h"
#include "views/controls/ChoicePopup.h"
#include "views/focus/FocusTargetPopup.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int openTasks = 100'000;
constexpr int datedTasks = 60'000;

struct BusyAccount : Account {
    BusyAccount()
    {
        kit->account().refreshCurrentUser();
        fill([this](ObjectContext &context) {
            const QStringList lists = insertLists(200, context);
            for (int i = 0; i < openTasks; ++i) {
                KWTaskModel task;
                task.userID = userID();
                task.projectID = lists.at(i % lists.size());
                task.title = u"Call the venue about chair number %1"_s.arg(i);
                task.sortOrder = i * KWSortOrderStep;
                if (i < datedTasks) task.startDate = clock.now() + std::chrono::hours{i - datedTasks / 2};
                context.insert<KWTask>(std::move(task));
            }
        });
    }
};

BusyAccount &account()
{
    static BusyAccount account;
    return account;
}

void reading(benchmark::State &state, const QString &typed)
{
    const Account &ours = account();
    for (auto _ : state)
        benchmark::DoNotOptimize(focusTargetChoices(ours.userID(), typed, **ours.kit->store().makeContext()));
}
BENCHMARK_CAPTURE(reading, nothingTyped, QString{})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(reading, wordOfEveryTask, u"venue"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(reading, firstLetter, u"c"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(reading, wordOfOneTask, u"99999"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(reading, noWord, u"%"_s)->Unit(benchmark::kMillisecond);

void opening(benchmark::State &state)
{
    OrvaneKit &kit = *account().kit;
    QWidget window;
    window.show();
    for (auto _ : state) {
        ChoicePopup &popup = FocusTargetPopup::open(window, {}, kit);
        QApplication::processEvents();
        state.PauseTiming();
        kit.manager().threadPool().waitForDone();
        popup.close();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(opening)->Unit(benchmark::kMillisecond);

// The key and what it found, without the wait between them.
void key(benchmark::State &state)
{
    OrvaneKit &kit = *account().kit;
    QWidget window;
    window.show();
    ChoicePopup &popup = FocusTargetPopup::open(window, {}, kit);
    auto *field = popup.findChild<QLineEdit *>();
    const auto answer = [&kit] {
        kit.manager().threadPool().waitForDone();
        QApplication::processEvents();
    };
    answer();
    for (auto _ : state) {
        field->setText({});
        Q_EMIT field->textEdited(u"c"_s);
        state.PauseTiming();
        kit.manager().threadPool().waitForDone();
        state.ResumeTiming();
        QApplication::processEvents();
    }
    popup.close();
    answer();
}
BENCHMARK(key)->Unit(benchmark::kMillisecond);

} // namespace
