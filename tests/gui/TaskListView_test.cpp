#include "views/tasklist/TaskListView.h"

#include "gui/RowMaking.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/tasklist/KWTaskListSectionCell.h"
#include "views/tasklist/TaskRowLayout.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QList<TaskListRow> rowsFrom(int first, int last)
{
    QList<TaskListRow> rows;
    for (int i = first; i <= last; ++i)
        rows.append(taskRow(u"task %1"_s.arg(i), u"Title %1"_s.arg(i)));
    return rows;
}

QStringList lastOf(const QSignalSpy &spy) { return spy.value(spy.size() - 1).value(0).toStringList(); }

// A view of a size, shown, with the keyboard in it.
struct Shown {
    explicit Shown(QList<TaskListRow> rows)
    {
        view.resize(600, 400);
        view.setRows(std::move(rows));
        view.show();
        view.setFocus();
        if (!QTest::qWaitForWindowActive(&view)) qFatal("the window does not become active");
    }

    QPoint checkbox(const QString &sid) const
    {
        return taskRowCheckbox(view.visualRect(model.indexOf(sid)), view.layoutDirection()).center();
    }
    QPoint title(const QString &sid) const { return view.visualRect(model.indexOf(sid)).center(); }
    QString topSid() const { return model.rowAt(view.indexAt({300, 0})).id; }

    ManualClock clock{"2030-05-01 09:00"};
    TaskListModel model{clock};
    TaskListView view{model};
};

} // namespace

class TaskListView_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keysDoNothingWithoutTasks()
    {
        Shown empty{{}};
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Return, Qt::Key_F2})
            QTest::keyClick(&empty.view, key);
        QCOMPARE(empty.view.currentTask(), QString{});
    }

    void theKeyboardHasARowAlsoWhenTheRowsComeLater()
    {
        Shown shown{rowsFrom(1, 3)};
        shown.view.setCurrentIndex({}); // it has the focus all the same
        shown.view.takeKeyboard();
        QCOMPARE(shown.view.currentTask(), u"task 1"_s);

        shown.view.setRows({});
        shown.view.takeKeyboard();
        shown.view.setRows(rowsFrom(5, 7));
        QTRY_COMPARE(shown.view.currentTask(), u"task 5"_s);
        shown.view.setRows({});
        shown.view.setRows(rowsFrom(1, 3));
        QCoreApplication::processEvents();
        QCOMPARE(shown.view.currentTask(), QString{}); // it was not asked for again

        shown.view.setRows({});
        shown.view.takeKeyboard();
        shown.view.setRows(rowsFrom(1, 3));
        shown.view.selectTask(u"task 2"_s);
        QCoreApplication::processEvents();
        QCOMPARE(shown.view.currentTask(), u"task 2"_s);
    }

    void aHeaderKeepsApartFromTheSectionAbove()
    {
        Shown shown{{sectionRow(u"One"_s, 0, 1), taskRow(u"task"_s), sectionRow(u"Two"_s, 1)}};
        const auto height = [&shown](const QString &section) {
            return shown.view.visualRect(shown.model.indexOf(u"section:"_s + section)).height();
        };
        const int first = height(u"One"_s);
        QVERIFY(height(u"Two"_s) > first);
        shown.view.setRows({sectionRow(u"Two"_s, 0)});
        QCOMPARE(height(u"Two"_s), first);
    }

    void keysShowTheFocusAndTheMouseHidesIt()
    {
        Shown shown{rowsFrom(1, 3)};
        const auto picture = [&shown] { return shown.view.viewport()->grab().toImage(); };
        const auto click = [&shown] {
            QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, shown.title(u"task 2"_s));
        };
        click();
        const QImage clicked = picture();
        QTest::keyClick(&shown.view, Qt::Key_Control); // to click another one as well
        QCOMPARE(picture(), clicked);
        QTest::keyClick(&shown.view, Qt::Key_Down);
        QTest::keyClick(&shown.view, Qt::Key_Up);
        QCOMPARE(shown.view.currentTask(), u"task 2"_s);
        QVERIFY(picture() != clicked);
        click();
        QCOMPARE(picture(), clicked);
    }

    void checkboxIsPressedWithoutSelecting()
    {
        Shown shown{rowsFrom(1, 5)};
        shown.view.selectTask(u"task 1"_s);
        QSignalSpy toggled{&shown.view, &TaskListView::completionToggled};
        QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, shown.checkbox(u"task 3"_s));
        QCOMPARE(lastOf(toggled), QStringList{u"task 3"_s});
        QCOMPARE(shown.view.currentTask(), u"task 1"_s);

        // Pressed there, let go elsewhere: a change of mind.
        QTest::mousePress(shown.view.viewport(), Qt::LeftButton, {}, shown.checkbox(u"task 4"_s));
        QTest::mouseRelease(shown.view.viewport(), Qt::LeftButton, {}, shown.title(u"task 4"_s));
        QCOMPARE(toggled.count(), 1);
        QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, shown.title(u"task 4"_s));
        QCOMPARE(shown.view.currentTask(), u"task 4"_s);
    }

    void nothingIsDoneToALaterOccurrence()
    {
        QList<TaskListRow> rows = rowsFrom(1, 2);
        rows.append(taskRow(u"task 1:later"_s, u"Title 1"_s));
        rows.last().task.ownerID = u"task 1"_s;
        rows.last().task.occurrence = rows.last().task.startDate = at("2030-05-02 09:00");
        Shown shown{rows};
        QSignalSpy toggled{&shown.view, &TaskListView::completionToggled};
        QSignalSpy deleted{&shown.view, &TaskListView::deletionRequested};
        QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, shown.checkbox(rows.last().id));
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_F2, Qt::Key_Delete})
            QTest::keyClick(&shown.view, key);
        QCOMPARE(shown.view.currentTask(), u"task 1"_s); // that is what the detail shows
        QVERIFY(toggled.isEmpty() && deleted.isEmpty() && !shown.view.findChild<QLineEdit *>());
        QVERIFY(!shown.view.hasSelectedTask());
        shown.view.selectAll();
        QTest::keyClick(&shown.view, Qt::Key_Space);
        QCOMPARE(lastOf(toggled), QStringList({u"task 1"_s, u"task 2"_s}));
    }

    void rowsWaitForTheTick()
    {
        Shown shown{rowsFrom(1, 3)};
        shown.view.selectTask(u"task 1"_s);
        QTest::keyClick(&shown.view, Qt::Key_Space);
        shown.view.setRows(rowsFrom(2, 3));
        QCOMPARE(shown.model.rowCount(), 3);
        shown.view.setRows(rowsFrom(2, 9));
        QTRY_COMPARE(shown.model.rowCount(), 8);
    }

    void selectionAndScrollSurvive()
    {
        // Rows come above, go above, come below; nearly all go.
        for (const auto &[first, last] : {std::pair{1, 400}, {150, 400}, {101, 900}, {170, 230}}) {
            Shown shown{rowsFrom(101, 400)};
            shown.view.selectTask(u"task 200"_s);
            shown.view.verticalScrollBar()->setValue(shown.view.verticalScrollBar()->value() + 50);
            const QString top = shown.topSid();
            const int offset = shown.view.visualRect(shown.model.indexOf(top)).top();
            QSignalSpy current{&shown.view, &TaskListView::currentTaskChanged};

            shown.view.setRows(rowsFrom(first, last));
            QCOMPARE(shown.view.currentTask(), u"task 200"_s);
            QCOMPARE(shown.topSid(), top);
            QCOMPARE(shown.view.visualRect(shown.model.indexOf(top)).top(), offset);
            QCOMPARE(current.count(), 0);
        }
    }

    void titleIsEditedInPlace()
    {
        Shown shown{rowsFrom(1, 3)};
        shown.view.selectTask(u"task 2"_s);
        QSignalSpy edited{&shown.view, &TaskListView::titleEdited};
        QTest::keyClick(&shown.view, Qt::Key_F2);
        auto *editor = shown.view.findChild<QLineEdit *>(u"taskRowTitleEditor"_s);
        QVERIFY(editor);
        QTest::keyClicks(editor, u"Other words"_s);
        shown.model.refreshDates(); // a minute goes by
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(edited.count(), 1);
        QCOMPARE(edited[0][0].toString(), u"task 2"_s);
        QCOMPARE(edited[0][1].toString(), u"Other words"_s);
        QCOMPARE(shown.model.rows().at(1).task.title, u"Title 2"_s);
    }

    void titleTypedInARowThatGoesIsKept()
    {
        Shown shown{rowsFrom(1, 3)};
        shown.view.selectTask(u"task 2"_s);
        QSignalSpy edited{&shown.view, &TaskListView::titleEdited};
        QTest::keyClick(&shown.view, Qt::Key_F2);
        QTest::keyClicks(shown.view.findChild<QLineEdit *>(u"taskRowTitleEditor"_s), u"Other words"_s);
        shown.view.setRows(rowsFrom(7, 9)); // another list
        QTRY_COMPARE(edited.count(), 1);
        QCOMPARE(edited[0][0].toString(), u"task 2"_s);
        QCOMPARE(edited[0][1].toString(), u"Other words"_s);
    }

    void anotherListSelectsNothingByItself()
    {
        Shown shown{rowsFrom(1, 3)};
        shown.view.selectTask(u"task 2"_s);
        shown.view.expectAnotherList();
        shown.view.setRows(rowsFrom(2, 4));
        QCOMPARE(shown.view.currentTask(), u"task 2"_s); // it is in both
        shown.view.expectAnotherList();
        shown.view.setRows(rowsFrom(7, 9));
        QCOMPARE(shown.view.currentTask(), QString{});
        QVERIFY(!shown.view.selectionModel()->hasSelection());
    }

    void longTitlesAndLinesPaint()
    {
        QList<TaskListRow> rows = rowsFrom(1, 3);
        rows[0].task.title = QString(100'000, u'x');
        rows[2].task.title = QString{QChar{0xd800}} + u" broken"_s;
        Shown shown{rows};
        QVERIFY(!shown.view.grab().isNull());
    }

    void headerHasItsButtonsAtTheEndOfTheLine()
    {
        const TaskListRow row = sectionRow(u"Overdue"_s, 0, 2);
        const SectionLook look{.isOverdue = true, .canAdd = true, .canPostpone = true};
        const QRect bounds{0, 0, 600, 32};
        for (const auto &[direction, end, start] :
             {std::tuple{Qt::LeftToRight, 580, 40}, {Qt::RightToLeft, 20, 560}}) {
            const KWTaskListSectionCell cell{row, look, bounds, direction};
            QCOMPARE(cell.partAt({end, 16}), RowPart::Postpone);
            QCOMPARE(cell.partAt({start, 16}), RowPart::Header);
            QSet<RowPart> parts;
            for (int x = 0; x < bounds.width(); ++x)
                parts.insert(cell.partAt({x, 16}));
            QCOMPARE(parts, (QSet{RowPart::Header, RowPart::Postpone, RowPart::Add, RowPart::More}));
        }
    }

    void rowLeavesOutWhatDoesNotFitAndIsMirroredForRightToLeft()
    {
        ManualClock clock{"2030-05-01 09:00"};
        TaskListModel model{clock};
        TaskListRow row;
        KWTaskListItemModel &task = row.task;
        row.hasChildren = true;
        task.tags = {u"errand"_s, u"deep-work"_s};
        task.projectID = u"p"_s;
        task.repeats = true;
        task.checklistCount = 4;
        task.startDate = at("2030-05-02 10:00");
        model.setListNames({{u"p"_s, u"Client launch"_s}});

        using Kind = TaskRowLayout::PieceKind;
        const auto kinds = [&](int width) {
            QList<Kind> found;
            for (const auto &piece : layOutTaskRow({0, 0, width, 40}, Qt::LeftToRight, model, row).pieces)
                found.append(piece.kind);
            return found;
        };
        QCOMPARE(kinds(1000),
                 (QList{Kind::Progress, Kind::Tag, Kind::Tag, Kind::Repeat, Kind::ListName, Kind::Date}));
        QCOMPARE(kinds(260), (QList{Kind::Date}));

        const QRect bounds{0, 0, 600, 40};
        const TaskRowLayout one = layOutTaskRow(bounds, Qt::LeftToRight, model, row);
        const TaskRowLayout other = layOutTaskRow(bounds, Qt::RightToLeft, model, row);
        QCOMPARE(other.title, QStyle::visualRect(Qt::RightToLeft, bounds, one.title));
        QVERIFY(one.checkbox.right() < 100 && other.checkbox.left() > 500);
        QVERIFY(one.triangle.right() <= one.checkbox.left() + 1 && other.triangle.left() > 500);
    }
};

ORVANE_TEST(TaskListView_test)
#include "TaskListView_test.moc"
