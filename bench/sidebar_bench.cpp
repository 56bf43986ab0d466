// The sidebar of an account with 200 lists and 300 tags: what a save of a list costs the main thread until
// its rows are in place, and the first build.

#include "Account.h"
#include "lists/KWProjectListPresenter.h"
#include "views/sidebar/KWProjectListView.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

struct Sidebar : Account {
    KWProjectListCountFetcher counts{kit->manager(), kit->center()};
    KWProjectListPresenter presenter{kit->manager(),  kit->account(), counts,
                                     kit->defaults(), kit->center(),  kit->bus()};
    QString list;

    Sidebar()
    {
        fill([this](ObjectContext &context) {
            list = insertLists(200, context).last();
            insertTags(300, context);
        });
    }
};

void buildSidebar(benchmark::State &state)
{
    Sidebar sidebar;
    for (auto _ : state) {
        KWProjectListView view;
        sidebar.presenter.onTreeRebuilt = [&] { view.setRoot(&sidebar.presenter.listsRootNode()); };
        sidebar.presenter.build();
        benchmark::DoNotOptimize(view.treeModel().rowCount());
        view.setRoot(nullptr);
        sidebar.presenter.onTreeRebuilt = {};
        sidebar.presenter.clear();
    }
}
BENCHMARK(buildSidebar)->Unit(benchmark::kMillisecond);

// The announcement alone: the save itself is measured elsewhere.
void rebuildSidebarAfterARename(benchmark::State &state)
{
    Sidebar sidebar;
    KWProjectListView view;
    sidebar.presenter.onTreeRebuilt = [&] { view.setRoot(&sidebar.presenter.listsRootNode()); };
    sidebar.presenter.build();
    KWProject *list = sidebar.kit->context().find<KWProject>(sidebar.list);
    StoreChange change;
    change.of(RecordKind::Project).updated = {sidebar.list};
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list->set(&KWProjectModel::name, u"Renamed %1"_s.arg(++number));
        state.ResumeTiming();
        sidebar.kit->bus().post(change);
    }
    view.setRoot(nullptr);
    sidebar.presenter.onTreeRebuilt = {};
}
BENCHMARK(rebuildSidebarAfterARename)->Unit(benchmark::kMillisecond);

} // namespace
