// The occurrences of 10,000 repeating tasks over half a year, in the store, and a week of them on a page that
// is turned to and painted.

#include "Account.h"
#include "RuleMaker.h"
#include "calendar/CalendarPageLoader.h"
#include "calendar/CalendarPageReader.h"
#include "calendar/KWRepeatInstanceService.h"
#include "calendar/RepeatInstanceRun.h"
#include "model/records/KWTask.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "views/calendar/MonthGridView.h"
#include "views/calendar/TimeGridView.h"
#include "views/pictures/CrowdedPage.h"

#include <QCoreApplication>
#include <QImage>

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

CalendarPage aWeek()
{
    if (account().rows() == 0 && !account().run()) std::abort();
    return CalendarPage::around(Day{2030y / 2 / 6}, CalendarPage::Kind::Week, Monday);
}

CalendarPageContent contentOf(const CalendarPage &page)
{
    CalendarPageContent content;
    const auto read = KWCoreDataService{account().kit->manager()}.sync_perform([&](ObjectContext &context) {
        auto found = readCalendarPage(page, account().userID(), {}, context);
        if (found) content = std::move(*found);
        return found ? Result<void>{} : found.error();
    });
    if (!read) std::abort();
    return content;
}

// What happens in the background, laying out included.
void readAWeek(benchmark::State &state)
{
    const CalendarPage page = aWeek();
    std::size_t items = 0;
    for (auto _ : state)
        items = contentOf(page).items.size();
    state.counters["items"] = double(items);
}
BENCHMARK(readAWeek)->Unit(benchmark::kMillisecond);

void layOutAWeek(benchmark::State &state)
{
    const CalendarPageContent content = contentOf(aWeek());
    for (auto _ : state) {
        benchmark::DoNotOptimize(timedBoxes(content.items, content.page, 30));
        benchmark::DoNotOptimize(allDayBars(content.items, content.page));
    }
    state.counters["items"] = double(content.items.size());
}
BENCHMARK(layOutAWeek)->Unit(benchmark::kMillisecond);

// From asking for a page until it is told: the time that goes by, and as CPU what of it the main thread
// works. To a page beside the one on show, or to one far from it that is read first.
void turn(benchmark::State &state, int pages)
{
    Account &all = account();
    KWRepeatInstanceService repeats{all.kit->manager(), all.kit->account(), all.kit->center(), all.clock};
    CalendarPageLoader loader{*all.kit, repeats, all.clock};
    CalendarPage page = aWeek();
    bool isTold = false;
    QObject::connect(&loader, &CalendarPageLoader::loaded, &loader, [&] { isTold = true; });
    const auto load = [&] {
        isTold = false;
        loader.load(page);
        while (!isTold)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    const auto settle = [&all] {
        for (int i = 0; i < 5; ++i) {
            all.kit->manager().threadPool().waitForDone();
            QCoreApplication::processEvents();
        }
    };
    load();
    settle();
    for (auto _ : state) {
        page = page.moved(pages, Monday);
        load();
        state.PauseTiming();
        settle();
        pages = -pages;
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(turn, toTheNextWeek, 1)->Unit(benchmark::kMillisecond)->Iterations(30);
BENCHMARK_CAPTURE(turn, toAFarWeek, 5)->Unit(benchmark::kMillisecond)->Iterations(30);

// From a page that is known to its picture, in a window of the usual size.
void paint(benchmark::State &state, const CalendarPageContent &one, const CalendarPageContent &other)
{
    SystemClock clock{CXTimeZone::utc()};
    CalendarEdits edits;
    std::unique_ptr<CalendarView> view;
    if (one.page.kind == CalendarPage::Kind::Month)
        view = std::make_unique<MonthGridView>(edits);
    else
        view = std::make_unique<TimeGridView>(edits, clock);
    view->resize(1032, 720); // beside the sidebar
    view->show();
    QImage image{view->size(), QImage::Format_ARGB32_Premultiplied};
    bool isOther = false;
    for (auto _ : state) {
        view->setContent(std::exchange(isOther, !isOther) ? other : one);
        view->render(&image);
    }
    state.counters["items"] = double(one.items.size());
}

void paintCrowded(benchmark::State &state, CalendarPage::Kind kind)
{
    constexpr int itemsADay = 40;
    const auto page = CalendarPage::around(Day{2030y / 2 / 6}, kind, Monday);
    const auto crowded = [](const CalendarPage &each) {
        return crowdedPage({.page = each, .today = each.begin}, itemsADay);
    };
    paint(state, crowded(page), crowded(page.moved(1, Monday)));
}
BENCHMARK_CAPTURE(paintCrowded, day, CalendarPage::Kind::SingleDay)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintCrowded, week, CalendarPage::Kind::Week)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintCrowded, month, CalendarPage::Kind::Month)->Unit(benchmark::kMillisecond);

void paintOfManySources(benchmark::State &state)
{
    const CalendarPage page = aWeek();
    paint(state, contentOf(page), contentOf(page.moved(1, Monday)));
}
BENCHMARK(paintOfManySources)->Unit(benchmark::kMillisecond);

} // namespace
