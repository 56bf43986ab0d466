// One key pressed in the command palette of an account with 100,000 tasks, 200 lists and 300 tags: until
// everything that is found stands on the screen.

#include "Account.h"
#include "lists/KWProjectListPresenter.h"
#include "model/records/KWTask.h"
#include "views/menu/MainMenu.h"
#include "views/palette/CommandPalette.h"
#include "views/palette/PaletteController.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;

struct LargeAccount : Account {
    LargeAccount()
    {
        fill([this](ObjectContext &context) {
            insertTags(300, context);
            insertTasks(insertLists(200, context), context);
        });
    }

    void insertTasks(const QStringList &lists, ObjectContext &context) const
    {
        for (int i = 0; i < storedTasks; ++i) {
            KWTaskModel task;
            task.userID = userID();
            task.projectID = lists.at(i % lists.size());
            task.title = u"Call the venue about chair number %1"_s.arg(i);
            task.sortOrder = i * KWSortOrderStep;
            if (i >= openTasks) {
                task.status = KWTaskStatusCompleted;
                task.completionDate = clock.now() - std::chrono::minutes{i};
            }
            context.insert<KWTask>(std::move(task));
        }
    }
};

struct Window {
    explicit Window(OrvaneKit &kit)
        : counts{kit.manager(), kit.center()}
        , sidebar{kit.manager(), kit.account(), counts, kit.defaults(), kit.center(), kit.bus()}
        , menu{kit.defaults()}
        , hits{kit, sidebar, [](const QString &) { return false; }}
        , palette{{kit, sidebar, menu, widget, hits}}
    {
        sidebar.build();
        widget.resize(1280, 800);
        widget.show();
        palette.open();
        field = widget.findChild<QLineEdit *>(u"paletteField"_s);
        if (!field) std::abort();
    }
    QWidget widget;
    KWProjectListCountFetcher counts;
    KWProjectListPresenter sidebar;
    MainMenu menu;
    TaskHits hits;
    PaletteController palette;
    QLineEdit *field = nullptr;
};

// The key that makes `text` what it is.
void press(benchmark::State &state, const QString &text)
{
    static LargeAccount account;
    Window window{*account.kit};
    for (auto _ : state) {
        state.PauseTiming();
        window.field->setText(text.chopped(1));
        QApplication::processEvents();
        state.ResumeTiming();
        window.field->setText(text);
        QApplication::processEvents();
    }
}
BENCHMARK_CAPTURE(press, firstLetter, u"c"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, nameOfAList, u"list 1"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, wordOfEveryTask, u"venue"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, twoWords, u"call chair"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, nothing, u"zebra"_s)->Unit(benchmark::kMillisecond);

} // namespace
