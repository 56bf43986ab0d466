#include "views/tasklist/TaskListModel.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/tasklist/RowPlan.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

using Rows = QList<KWTaskListItemModel>;

KWTaskListItemModel row(const QString &sid, const QString &title = {})
{
    KWTaskListItemModel made;
    made.sid = sid;
    made.title = title;
    return made;
}

// One row a letter.
Rows rowsOf(const QString &letters)
{
    Rows rows;
    for (const QChar letter : letters)
        rows.append(row(letter));
    return rows;
}

QString sidsOf(const Rows &rows)
{
    QStringList sids;
    for (const KWTaskListItemModel &each : rows)
        sids.append(each.sid);
    return sids.join(u' ');
}

Rows randomRows(std::mt19937 &random, int mostRows)
{
    Rows rows;
    for (int i = 0; i < mostRows; ++i)
        if (random() % 3 != 0) rows.append(row(QString::number(i), QString::number(random() % 4)));
    std::shuffle(rows.begin(), rows.end(), random);
    return rows;
}

// As a refresh does it: some rows go, some come, some stand elsewhere.
Rows slightlyChanged(Rows rows, std::mt19937 &random, int number)
{
    for (int i = int(random() % 4); i > 0 && !rows.isEmpty(); --i)
        rows.removeAt(random() % rows.size());
    for (int i = int(random() % 4); i > 0; --i)
        rows.insert(random() % (rows.size() + 1), row(u"new %1 %2"_s.arg(number).arg(i)));
    for (int i = int(random() % 4); i > 0 && !rows.isEmpty(); --i)
        rows.move(random() % rows.size(), random() % rows.size());
    if (!rows.isEmpty()) rows[random() % rows.size()].title = QString::number(number);
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
                pointers.append({model.rows().at(k).sid, model.index(k)});
            resets.clear();

            model.setRows(rows);
            QCOMPARE(sidsOf(model.rows()), sidsOf(rows));
            QVERIFY(model.rows() == rows);
            if (!resets.isEmpty()) continue;
            for (const auto &[sid, pointer] : pointers) {
                const QModelIndex now = model.indexOf(sid);
                QCOMPARE(pointer.isValid(), now.isValid());
                QCOMPARE(QModelIndex{pointer}, now);
            }
        }
    }

    void needsFewSteps_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("removals");
        QTest::addColumn<int>("moves");
        QTest::addColumn<int>("insertions");
        QTest::newRow("nothing") << u"abcd"_s << u"abcd"_s << 0 << 0 << 0;
        QTest::newRow("one completed") << u"abcd"_s << u"acd"_s << 1 << 0 << 0;
        QTest::newRow("one added on top") << u"abcd"_s << u"xabcd"_s << 0 << 0 << 1;
        QTest::newRow("one moved down") << u"abcdef"_s << u"bcdeaf"_s << 0 << 1 << 0;
        QTest::newRow("one moved up") << u"abcdef"_s << u"aebcdf"_s << 0 << 1 << 0;
        QTest::newRow("two swapped far apart") << u"abcdef"_s << u"fbcdea"_s << 0 << 2 << 0;
        QTest::newRow("another list") << u"abcd"_s << u"wxyz"_s << 1 << 0 << 1;
        QTest::newRow("two ranges go, one comes") << u"abcdef"_s << u"bcxf"_s << 2 << 0 << 1;
        QTest::newRow("from nothing") << QString{} << u"abc"_s << 0 << 0 << 1;
    }

    void needsFewSteps()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, after);
        const auto plan = planRows(rowsOf(before), rowsOf(after), 32);
        QVERIFY(plan);
        QTEST(int(plan->removals.size()), "removals");
        QTEST(int(plan->moves.size()), "moves");
        QTEST(int(plan->insertions.size()), "insertions");
    }

    void refusesToPlanTooMuchOrTheImpossible()
    {
        QVERIFY(!planRows(rowsOf(u"abcdefgh"_s), rowsOf(u"hgfedcba"_s), 3));
        QVERIFY(!planRows(rowsOf(u"abab"_s), rowsOf(u"ba"_s), 32));
        QVERIFY(!planRows(rowsOf(u"ba"_s), rowsOf(u"abab"_s), 32));
    }

    void tellsOnlyOfRowsThatChanged()
    {
        ManualClock clock{"2030-05-01 09:00"};
        TaskListModel model{clock};
        model.setRows(rowsOf(u"abcdef"_s));
        QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
        QSignalSpy moves{&model, &TaskListModel::rowsAboutToChange};

        Rows rows = model.rows();
        model.setRows(rows);
        QCOMPARE(changes.count(), 0);
        rows[1].title = u"new"_s;
        rows[2].status = KWTaskStatusCompleted;
        rows[5].priority = KWTaskPriorityHigh;
        model.setRows(rows);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(changes[0][0].toModelIndex().row(), 1);
        QCOMPARE(changes[0][1].toModelIndex().row(), 2);
        QCOMPARE(changes[1][0].toModelIndex().row(), 5);
        QCOMPARE(moves.count(), 0);
    }

    void saysAloudWhatARowShows()
    {
        ManualClock clock{"2030-05-01 09:00"};
        TaskListModel model{clock};
        KWTaskListItemModel task = row(u"a"_s, u"Pay rent"_s);
        task.priority = KWTaskPriorityHigh;
        task.startDate = at("2030-04-30 08:00");
        task.repeats = true;
        task.checklistCount = 4;
        task.checklistDoneCount = 2;
        task.tags = {u"home"_s};
        task.projectID = u"p"_s;
        model.setRows({task});
        model.setListNames({{u"p"_s, u"Bills"_s}});
        model.setTagLabels({{u"home"_s, u"Home"_s}});
        QCOMPARE(model.index(0).data(Qt::AccessibleTextRole).toString(),
                 u"Pay rent, Priority: High, Overdue, Yesterday 08:00, Repeats, 2 of 4 items done, "
                 u"#Home, List: Bills"_s);
        QCOMPARE(model.listName(row(u"b"_s)), QString{});
        QCOMPARE(model.tagLabel(u"unknown"_s), u"unknown"_s);
    }
};

ORVANE_TEST(TaskListModel_test)
#include "TaskListModel_test.moc"
