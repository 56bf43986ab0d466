// One key pressed in the command palette of an account with 100,000 tasks, 200 lists and 300 tags: until
// everything that is found stands on the screen.

#include "corvexkit/time/SystemClock.h"
#include "lists/KWProjectListPresenter.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "views/menu/MainMenu.h"
#include "views/palette/CommandPalette.h"
#include "views/palette/PaletteController.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int listCount = 200;
constexpr int tagCount = 300;

struct Home {
    QTemporaryDir folder;
    SystemClock clock{CXTimeZone::utc()};
    std::unique_ptr<OrvaneKit> kit = OrvaneKit::open(DataFolders::locate(folder.path()), clock).kit;

    Home()
    {
        if (!kit || !kit->account().openLocalAccount(QLocale::c())) std::abort();
        const auto filled = KWCoreDataService{kit->manager()}.sync_save([this](ObjectContext &context) {
            fill(context);
            return Result<void>{};
        });
        if (!filled) std::abort();
    }

    void fill(ObjectContext &context) const
    {
        const QString user = kit->account().currentUserID();
        QStringList lists;
        for (int i = 0; i < listCount; ++i)
            lists.append(KWProject::createProjectNamed(u"List %1"_s.arg(i), user, context).sid());
        for (int i = 0; i < tagCount; ++i)
            KWTag::createNewTagWithName(u"tag%1"_s.arg(i), user, TagUniqueness::MayExist, context);
        for (int i = 0; i < storedTasks; ++i) {
            KWTaskModel task;
            task.userID = user;
            task.projectID = lists.at(i % listCount);
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
    static Home home;
    Window window{*home.kit};
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

int main(int argc, char **argv)
{
    const QApplication application{argc, argv};
    ThemeConfigurator::shared().apply();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
