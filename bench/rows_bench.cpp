// The middle pane with 10,000 tasks in sections, painted by the offscreen platform as on a screen.
#include "corvexkit/time/SystemClock.h"
#include "lists/TaskListRows.h"
#include "views/tasklist/TaskListModel.h"
#include "views/tasklist/TaskListView.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <chrono>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int taskCount = 10'000;
constexpr int tasksOfSection = 100;

// Every fourth task has a subtask; tags, dates and marks as in a list that is used.
QList<TaskListRow> manyRows(Instant now)
{
    QList<TaskListRow> rows;
    for (int i = 0; i < taskCount; ++i) {
        const int section = i / tasksOfSection;
        if (i % tasksOfSection == 0)
            rows.append({TaskListRow::Kind::Section, u"section:%1"_s.arg(section), section,
                         u"Section %1"_s.arg(section), tasksOfSection});
        TaskListRow row{TaskListRow::Kind::Task, u"task %1"_s.arg(i), section};
        row.task.sid = row.id;
        row.task.title = u"Call the venue about chair number %1"_s.arg(i);
        row.task.priority = KWTaskPriorities[i % 4];
        row.task.startDate = now + std::chrono::hours{i % 700 - 100};
        row.task.repeats = i % 5 == 0;
        row.task.checklistCount = i % 3 ? 0 : 4;
        row.task.projectID = u"list"_s;
        if (i % 2) row.task.tags = {u"errand"_s, u"deep-work"_s};
        row.hasChildren = i % 4 == 0;
        row.depth = i % 4 == 1;
        rows.append(row);
    }
    return rows;
}

struct Pane {
    Pane()
    {
        model.setListNames({{u"list"_s, u"Client launch"_s}});
        view.resize(680, 700);
        view.setRows(manyRows(clock.now()));
        view.show();
        QApplication::processEvents();
    }
    SystemClock clock{CXTimeZone::utc()};
    TaskListModel model{clock};
    TaskListView view{model};
};

// One frame: the list moves on by half a page, so that most of it is painted anew.
void scroll(benchmark::State &state)
{
    Pane pane;
    QScrollBar &bar = *pane.view.verticalScrollBar();
    std::vector<double> frames;
    int step = 350;
    for (auto _ : state) {
        if (bar.value() + step > bar.maximum() || bar.value() + step < 0) step = -step;
        const auto begin = std::chrono::steady_clock::now();
        bar.setValue(bar.value() + step);
        QApplication::processEvents();
        frames.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
    }
    const auto late = frames.begin() + std::ptrdiff_t(frames.size() * 99 / 100);
    std::nth_element(frames.begin(), late, frames.end());
    state.counters["p99_ms"] = *late;
}
BENCHMARK(scroll)->Unit(benchmark::kMillisecond)->Iterations(1000);

// A task that was changed elsewhere: its row is told to the view, which paints it.
void changeOne(benchmark::State &state)
{
    Pane pane;
    QList<TaskListRow> rows = pane.model.rows();
    int round = 0;
    for (auto _ : state) {
        rows[taskCount / 2].task.title = u"Round %1"_s.arg(++round);
        pane.view.setRows(rows);
        QApplication::processEvents();
    }
}
BENCHMARK(changeOne)->Unit(benchmark::kMillisecond);

// The same with a task that goes to another section.
void moveOne(benchmark::State &state)
{
    Pane pane;
    QList<TaskListRow> rows = pane.model.rows();
    for (auto _ : state) {
        rows.move(taskCount / 2, taskCount / 3);
        pane.view.setRows(rows);
        QApplication::processEvents();
    }
}
BENCHMARK(moveOne)->Unit(benchmark::kMillisecond);

void foldSection(benchmark::State &state)
{
    Pane pane;
    const QList<TaskListRow> unfolded = pane.model.rows();
    QList<TaskListRow> folded = unfolded;
    folded.remove(1, tasksOfSection);
    bool isFolded = false;
    for (auto _ : state) {
        pane.view.setRows((isFolded = !isFolded) ? folded : unfolded);
        QApplication::processEvents();
    }
}
BENCHMARK(foldSection)->Unit(benchmark::kMillisecond);

} // namespace
