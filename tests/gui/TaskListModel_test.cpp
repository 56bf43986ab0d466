#include "views/tasklist/TaskListModel.h"

#include "gui/RowMaking.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/tasklist/RowPlan.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Rows = QList<TaskListRow>;

// One row a letter.
Rows rowsOf(const QString &letters)
{
    Rows rows;
    for (const QChar letter : letters)
        rows.append(taskRow(letter));
    return rows;
}

Rows randomRows(std::mt19937 &random, int mostRows)
{
    Rows rows;
    for (int i = 0; i < mostRows; ++i)
        if (random() % 3 != 0) rows.append(taskRow(QString::number(i), QString::number(random() % 4)));
    std::shuffle(rows.begin(), rows.end(), random);
    return rows;
}

// As a refresh does it: some rows go, some come, some stand elsewhere.
Rows slightlyChanged(Rows rows, std::mt19937 &random, int number)
{
    for (int i = int(random() % 4); i > 0 && !rows.isEmpty(); --i)
        rows.removeAt(random() % rows.size());
    for (int i = int(random() % 4); i > 0; --i)
        rows.insert(random() % (rows.size() + 1), taskRow(u"new %1 %2"_s.arg(number).arg(i)));
    for (int i = int(random() % 4); i > 0 && !rows.isEmpty(); --i)
        rows.move(random() % rows.size(), random() % rows.size());
    if (!rows.isEmpty()) rows[random() % rows.size()].task.title = QString::number(number);
    return rows;
}

} // namespace

class TaskListModel_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesAnyRowsAndKeepsWhatPointsAtThem()
    {
        std::mt19937 random{20300501};
        ManualClock clock{"2030-05-01 09:00"};
        TaskListModel model{clock};
        const QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
        QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
        for (int i = 0; i < 400; ++i) {
            const Rows rows =
                i % 4 ? slightlyChanged(model.rows(), random, i) : randomRows(random, int(random() % 60));
            QList<std::pair<QString, QPersistentModelIndex>> pointers;
            for (int k = 0; k < model.rowCount(); ++k)
                pointers.append({model.rows().at(k).id, model.index(k)});
            resets.clear();

            model.setRows(rows);
            QVERIFY(model.rows() == rows);
            if (!resets.isEmpty()) continue;
            for (const auto &[sid, pointer] : pointers) {
                const QModelIndex now = model.indexOf(sid);
                QCOMPARE(QModelIndex{pointer}, now);
            }
        }
    }

    void needsFewStepsOrRefuses_data() { addCaseRows("gui/row-plans.txt", 5); }
    void needsFewStepsOrRefuses()
    {
        QFETCH(const QStringList, cells);
        const auto plan = planRows(rowsOf(cells[0]), rowsOf(cells[1]), 6);
        QCOMPARE(plan.has_value(), cells[2] != u"refused");
        if (!plan) return;
        QCOMPARE(plan->removals.size(), cells[2].toInt());
        QCOMPARE(plan->moves.size(), cells[3].toInt());
        QCOMPARE(plan->insertions.size(), cells[4].toInt());
    }

    void saysAloudWhatARowShows()
    {
        ManualClock clock{"2030-05-01 09:00"};
        TaskListModel model{clock};
        TaskListRow row = taskRow(u"a"_s, u"Pay rent"_s);
        KWTaskListItemModel &task = row.task;
        task.priority = KWTaskPriorityHigh;
        task.startDate = at("2030-04-30 08:00");
        task.repeats = true;
        task.checklistCount = 4;
        task.checklistDoneCount = 2;
        task.tags = {u"home"_s};
        task.projectID = u"p"_s;
        task.attachmentCount = 1;
        task.focusDuration = 25 * 60;
        task.pinnedDate = task.startDate;
        row.depth = 1;
        row.hasChildren = true;
        model.setRows({row, sectionRow(u"Later"_s, 0, 3), itemRow(u"i"_s, u"Stamp"_s, u"Send the letter"_s)});
        model.setListNames({{u"p"_s, u"Bills"_s}});
        model.setTagLabels({{u"home"_s, u"Home"_s}});
        QCOMPARE(model.index(0).data(Qt::AccessibleTextRole).toString(),
                 u"Pay rent, Priority: High, Overdue, Yesterday 08:00, Pinned, Repeats, 2 of 4 items done, "
                 u"1 attachments, Focused: 25 minutes, #Home, List: Bills, Level 2, unfolded"_s);
        QCOMPARE(model.index(1).data(Qt::AccessibleTextRole).toString(),
                 u"Later, Section with 3 tasks, unfolded"_s);
        QCOMPARE(model.index(2).data(Qt::AccessibleTextRole).toString(),
                 u"Stamp, Checklist item of Send the letter"_s);
        model.setHasDueDates(false);
        QVERIFY(!model.index(0).data(Qt::AccessibleTextRole).toString().contains(u"Overdue"_s));
        using enum TaskListRow::Holds;
        for (const auto &[holds, count, said] : {std::tuple{Events, 3, "3 events"},
                                                 {Events, 1, "1 event"},
                                                 {Habits, 1, "1 habit"},
                                                 {Notes, 2, "2 notes"},
                                                 {Several, 2, "2 rows"},
                                                 {Tasks, 1, "1 task"}}) {
            TaskListRow section = sectionRow(u"Later"_s, 0, count);
            section.holds = holds;
            model.setRows({section});
            QCOMPARE(model.index(0).data(Qt::AccessibleTextRole).toString(),
                     u"Later, Section with %1, unfolded"_s.arg(QLatin1StringView{said}));
        }
    }
};

ORVANE_TEST(TaskListModel_test)
#include "TaskListModel_test.moc"
