// The sidebar of an account with 200 lists and 300 tags: what a save of a list costs the main thread until
// its rows are in place, and the first build.

#include "corvexkit/time/SystemClock.h"
#include "lists/KWProjectListPresenter.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "views/sidebar/KWProjectListView.h"

#include <QApplication>
#include <QLocale>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int lists = 200;
constexpr int tags = 300;

struct Home {
    QTemporaryDir folder;
    SystemClock clock{CXTimeZone::utc()};
    std::unique_ptr<OrvaneKit> kit;
    std::unique_ptr<KWProjectListCountFetcher> counts;
    std::unique_ptr<KWProjectListPresenter> sidebar;
    QString list;

    Home()
    {
        kit = OrvaneKit::open(DataFolders::locate(folder.path()), clock).kit;
        if (!kit || !kit->account().openLocalAccount(QLocale::c())) std::abort();
        const QString user = kit->account().currentUserID();
        const auto filled = KWCoreDataService{kit->manager()}.sync_save([&](ObjectContext &context) {
            for (int i = 0; i < lists; ++i)
                list = KWProject::createProjectNamed(u"List %1"_s.arg(i), user, context).sid();
            for (int i = 0; i < tags; ++i)
                KWTag::createNewTagWithName(u"tag%1"_s.arg(i), user, TagUniqueness::MayExist, context);
            return Result<void>{};
        });
        if (!filled) std::abort();
        counts = std::make_unique<KWProjectListCountFetcher>(kit->manager(), kit->center());
        sidebar = std::make_unique<KWProjectListPresenter>(kit->manager(), kit->account(), *counts,
                                                           kit->defaults(), kit->center(), kit->bus());
    }
};

void buildSidebar(benchmark::State &state)
{
    Home home;
    for (auto _ : state) {
        KWProjectListView view;
        home.sidebar->onTreeRebuilt = [&] { view.setRoot(&home.sidebar->listsRootNode()); };
        home.sidebar->build();
        benchmark::DoNotOptimize(view.treeModel().rowCount());
        view.setRoot(nullptr);
        home.sidebar->onTreeRebuilt = {};
        home.sidebar->clear();
    }
}
BENCHMARK(buildSidebar)->Unit(benchmark::kMillisecond);

// The announcement alone: the save itself is measured elsewhere.
void rebuildSidebarAfterARename(benchmark::State &state)
{
    Home home;
    KWProjectListView view;
    home.sidebar->onTreeRebuilt = [&] { view.setRoot(&home.sidebar->listsRootNode()); };
    home.sidebar->build();
    KWProject *list = home.kit->context().find<KWProject>(home.list);
    StoreChange change;
    change.of(RecordKind::Project).updated = {home.list};
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list->set(&KWProjectModel::name, u"Renamed %1"_s.arg(++number));
        state.ResumeTiming();
        home.kit->bus().post(change);
    }
    view.setRoot(nullptr);
    home.sidebar->onTreeRebuilt = {};
}
BENCHMARK(rebuildSidebarAfterARename)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication application{argc, argv};
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
