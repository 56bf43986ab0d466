#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWColumn.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/TaskBatch.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/controls/ChoicePopup.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskMimeData.h"
#include "views/toast/Toast.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The middle pane of the real window: sections, several tasks at once, order by hand.
class TaskListPage_test : public QObject, MainWindowHands {
    Q_OBJECT

    KWTaskModel task(const QString &id) { return m_client->kit().context().find<KWTask>(id)->model(); }

private Q_SLOTS:
    void init()
    {
        startClient(); // a Saturday
        const auto in = [this](int days) {
            return std::optional{m_client->clock.today() + std::chrono::days{days}};
        };
        for (const auto &[title, day] : {std::pair{u"Rent"_s, in(-1)},
                                         {u"Water"_s, in(-3)},
                                         {u"Call !high"_s, in(0)},
                                         {u"Bread"_s, in(0)},
                                         {u"Walk"_s, in(1)},
                                         {u"Idea"_s, std::nullopt}}) {
            const auto added = m_client->rooms().newTasks().add(title);
            if (day) QVERIFY(TaskBatch{m_client->kit().manager()}.setDay({added->sid}, *day));
        }
        m_client->openList(u"Inbox"_s);
        QTRY_COMPARE(pane().model().tasks().size(), 6);
        sortBy(u"By Time"_s);
    }
    void cleanup() { endClient(); }

    void showsSectionsAndFoldsThem()
    {
        QCOMPARE(shown(), u"[Overdue] Water Rent [Today] Call Bread [Tomorrow] Walk [No Date] Idea"_s);
        list().selectTask(idOf(u"Bread"_s));
        goTo(sectionRow(u"Today"_s));
        QCOMPARE(list().currentTask(), QString{});
        m_client->press(Qt::Key_Left);
        QCOMPARE(shown(), u"[Overdue] Water Rent [Today] [Tomorrow] Walk [No Date] Idea"_s);
        QCOMPARE(list().currentIndex(), sectionRow(u"Today"_s));
        QVERIFY(m_client->rooms().newTasks().add(u"Soup today"_s));
        QTRY_COMPARE(pane().model().rowAt(sectionRow(u"Today"_s)).count, 3);
        m_client->openList(u"Today"_s);
        m_client->openList(u"Inbox"_s);
        QVERIFY(!shown().contains(u"Bread"_s));

        const QRect header = list().visualRect(sectionRow(u"Today"_s));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, header.center());
        QVERIFY(shown().contains(u"Bread"_s));
        goTo(taskRow(u"Bread"_s));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, header.center());
        QCOMPARE(list().currentIndex(), sectionRow(u"Today"_s));
        QCOMPARE(list().currentTask(), QString{});
        QVERIFY(!list().selectionModel()->hasSelection());
        m_client->press(Qt::Key_Right);
        QVERIFY(shown().contains(u"Bread"_s));
        goTo(sectionRow(u"Tomorrow"_s));
        chooseInMenu(u"Fold All Sections"_s);
        QCOMPARE(shown(), u"[Overdue] [Today] [Tomorrow] [No Date]"_s);
    }

    void offersOnlyListsThatTakeTasks()
    {
        for (const QString &each : {u"Plans"_s, u"Errands"_s})
            QVERIFY(m_client->rooms().newTasks().add(u"Task ^"_s + each));
        ObjectContext &context = m_client->kit().context();
        KWProject::findProjectNamed(u"Plans"_s, m_client->kit().account().currentUserID(), context)
            ->set(&KWProjectModel::permission, KWProjectPermissionRead);
        QVERIFY(context.save());
        goTo(taskRow(u"Bread"_s));
        chooseInMenu(u"Move to List…"_s);
        const auto *popup = m_client->window()->findChild<ChoicePopup *>();
        QVERIFY(popup);
        const QAbstractItemModel *offered = popup->findChild<QListView *>()->model();
        QStringList titles;
        for (int row = 0; row < offered->rowCount(); ++row)
            titles << offered->index(row, 0).data().toString();
        QCOMPARE(titles, (QStringList{u"Inbox"_s, u"Errands"_s}));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        const auto drag = [this](const QString &onto) {
            return dropOnList(TaskMimeData::make({idOf(u"Bread"_s)}, {}), listRow(onto), 0.5);
        };
        QVERIFY(!drag(u"Plans"_s));
        QVERIFY(drag(u"Errands"_s));
    }

    void beginsInTheAddFieldOrInTheList()
    {
        for (const auto &[title, focus] : {std::pair{u"Inbox"_s, "addField"}, {u"Completed"_s, "taskList"}}) {
            m_client->openList(title);
            m_client->restart();
            QCOMPARE(m_client->window()->focusWidget()->objectName(), QLatin1StringView{focus});
        }
    }

    void postponesWhatIsOverdueAndTakesItBack()
    {
        goTo(sectionRow(u"Overdue"_s));
        chooseInMenu(u"Postpone to Today"_s);
        QTRY_VERIFY(!shown().contains(u"Overdue"_s));
        QCOMPARE(pane().model().rowAt(sectionRow(u"Today"_s)).count, 4);
        undo();
        QTRY_VERIFY(shown().startsWith(u"[Overdue] Water Rent [Today]"_s));
    }

    void addsATaskWithWhatTheSectionStandsFor()
    {
        goTo(sectionRow(u"Tomorrow"_s));
        chooseInMenu(u"Add Task"_s);
        QVERIFY(pane().addField().hasFocus());
        QVERIFY(pane().addField().placeholder().contains(u"Tomorrow"_s));
        m_client->type(u"Pack #trip"_s); // a new tag: the sidebar changes
        m_client->press(Qt::Key_Return);
        QTRY_COMPARE(pane().model().rowAt(sectionRow(u"Tomorrow"_s)).count, 2);
        QVERIFY(pane().addField().placeholder().contains(u"Tomorrow"_s));
        m_client->press(Qt::Key_Escape); // the field is left empty
        QVERIFY(pane().addField().placeholder().contains(u"Inbox"_s));
    }

    void addsToAColumnAndToNothingOfAnArchivedList()
    {
        ObjectContext &context = m_client->kit().context();
        NewTaskContext doing;
        doing.presetList =
            KWProject::createProjectNamed(u"Move"_s, m_client->kit().account().currentUserID(), context)
                .sid();
        KWColumnModel column;
        column.projectID = *doing.presetList;
        column.name = u"Doing"_s;
        doing.presetColumn = context.insert<KWColumn>(std::move(column)).sid();
        QVERIFY(context.save());
        QVERIFY(m_client->rooms().newTasks().add(u"Boxes"_s, doing));
        m_client->openList(u"Move"_s);
        QTRY_COMPARE(shown(), u"[Doing] Boxes"_s);

        goTo(sectionRow(u"Doing"_s));
        chooseInMenu(u"Add Task"_s);
        m_client->type(u"Van"_s);
        m_client->press(Qt::Key_Return);
        QTRY_COMPARE(shown(), u"[Doing] Van Boxes"_s);
        const auto takesTasks = [this] {
            return pane().model().lookOf(pane().model().rowAt(sectionRow(u"Doing"_s))).canAdd;
        };
        QVERIFY(takesTasks());
        context.find<KWProject>(*doing.presetList)->set(&KWProjectModel::closed, true);
        QVERIFY(context.save());
        QTRY_VERIFY(!takesTasks());
        m_client->openList(u"Inbox"_s);
        sortBy(u"By Time"_s);
        QVERIFY(pane().model().lookOf(pane().model().rowAt(sectionRow(u"Today"_s))).canAdd);
    }

    void changesAllSelectedTasksAtOnce()
    {
        list().selectTasks(idsOf({u"Water"_s, u"Bread"_s, u"Idea"_s}));
        list().setFocus();
        m_client->press(Qt::Key_3, Qt::AltModifier);
        for (const QString &each : {u"Water"_s, u"Bread"_s, u"Idea"_s})
            QCOMPARE(task(idOf(each)).priority, KWTaskPriorityHigh);
        QCOMPARE(list().selectedTasks().size(), 3);
        undo();
        QCOMPARE(task(idOf(u"Idea"_s)).priority, KWTaskPriorityNone);

        chooseInMenu(u"Merge 3 Tasks"_s);
        QTRY_COMPARE(pane().model().tasks().size(), 4);
        undo();
        QTRY_COMPARE(pane().model().tasks().size(), 6);
        m_client->press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list().selectedTasks().size(), 6);
        m_client->press(Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().startsWith(u"Water\nRent\nCall"_s));
        m_client->press(Qt::Key_Delete);
        QTRY_COMPARE(pane().model().tasks().size(), 0);
        undo();
        QTRY_COMPARE(pane().model().tasks().size(), 6);
    }

    void dropsIntoAnotherSectionAndBelowATask()
    {
        drop({u"Rent"_s, u"Idea"_s}, sectionRow(u"Tomorrow"_s), 0.5);
        QTRY_COMPARE(shown(), u"[Overdue] Water [Today] Call Bread [Tomorrow] Rent Idea Walk"_s);
        undo();
        QTRY_COMPARE(shown(), u"[Overdue] Water Rent [Today] Call Bread [Tomorrow] Walk [No Date] Idea"_s);

        drop({u"Walk"_s}, taskRow(u"Call"_s), 0.5);
        QTRY_COMPARE(shown(), u"[Overdue] Water Rent [Today] Call .Walk Bread [No Date] Idea"_s);
        goTo(taskRow(u"Call"_s));
        m_client->press(Qt::Key_Left);
        QCOMPARE(shown(), u"[Overdue] Water Rent [Today] Call Bread [No Date] Idea"_s);
        m_client->press(Qt::Key_Right);
        drop({u"Call"_s}, taskRow(u"Walk"_s), 0.5); // below itself
        QVERIFY(shown().contains(u"Call .Walk"_s));
        QVERIFY(m_client->window()->toast().accessibleName().endsWith(u'.'));

        goTo(taskRow(u"Bread"_s));
        m_client->press(Qt::Key_BracketRight, Qt::ControlModifier);
        QTRY_VERIFY(shown().contains(u"Call .Walk .Bread"_s));
        m_client->press(Qt::Key_BracketLeft, Qt::ControlModifier);
        QTRY_VERIFY(shown().contains(u"Call .Walk Bread"_s));
    }

    void isPutInOrderByHandAndBack()
    {
        drop({u"Bread"_s}, taskRow(u"Call"_s), 0.1);
        QTRY_VERIFY(shown().contains(u"[Today] Bread Call"_s));
        goTo(taskRow(u"Bread"_s));
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(shown().contains(u"[Today] Call Bread"_s));
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(shown().contains(u"[Tomorrow] Bread Walk"_s));
        QCOMPARE(list().currentTask(), idOf(u"Bread"_s));
        m_client->restart();
        m_client->openList(u"Inbox"_s);
        QTRY_VERIFY(shown().contains(u"[Tomorrow] Bread Walk"_s));
        sortBy(u"Reset to default date order"_s);
        QMenu &menu = openSortMenu();
        QVERIFY(std::ranges::none_of(
            menu.actions(), [](const QAction *each) { return each->text().startsWith(u"Reset"_s); }));
        menu.close();
    }

    void showsMoreCompletedTasksWhenAsked()
    {
        m_client->press(Qt::Key_2, Qt::ControlModifier);
        QStringList ids;
        for (int i = 0; i < 12; ++i)
            ids.append(m_client->rooms().newTasks().add(u"Done %1"_s.arg(i))->sid);
        m_client->openList(u"Inbox"_s);
        QVERIFY(KWTaskTicker{m_client->kit().manager()}.updateStatus(KWTaskStatusCompleted, ids));
        const auto count = [&] { return shown().count(u"Done "_s); };
        QTRY_VERIFY(count() > 0 && count() < 12);
        const qsizetype before = count();
        goTo(pane().model().indexOf(u"loadMore"_s));
        m_client->press(Qt::Key_Return);
        QTRY_VERIFY(count() > before);
        chooseOfPage(u"Show Completed"_s);
        QTRY_COMPARE(count(), 0);
    }

    void takesBackStepByStepAlsoWhenTheMessageHasGone()
    {
        const QString bread = idOf(u"Bread"_s);
        const QString call = idOf(u"Call"_s);
        list().selectTask(bread);
        list().setFocus();
        m_client->press(Qt::Key_3, Qt::AltModifier);
        QVERIFY(task(bread).priority != KWTaskPriorityNone);
        list().selectTask(call);
        m_client->press(Qt::Key_Delete);
        m_client->clock.advance(std::chrono::minutes{1});
        QVERIFY(task(call).isTrashed);
        undo();
        QVERIFY(!task(call).isTrashed);
        QVERIFY(task(bread).priority != KWTaskPriorityNone);
        pane().addField().setFocus(); // in which nothing is typed
        undo();
        QCOMPARE(task(bread).priority, KWTaskPriorityNone);
    }

    void detailStaysWithItsTaskWhileOneTypesInIt()
    {
        m_client->openList(u"Today"_s);
        QTRY_VERIFY(shown().contains(u"Call"_s));
        const QString call = idOf(u"Call"_s);
        const QString bread = idOf(u"Bread"_s);
        list().selectTask(call);
        goTo(taskRow(u"Call"_s));
        m_client->press(Qt::Key_Return);
        auto &title = m_client->find<CommittingTextEdit>("taskTitle");
        title.setFocus();
        title.moveCursor(QTextCursor::End);
        m_client->type(u" the"_s);
        QVERIFY(TaskBatch{m_client->kit().manager()}.setDay({call},
                                                            m_client->clock.today() + std::chrono::days{9}));
        QTRY_VERIFY(!shown().contains(u"Call"_s));
        m_client->press(Qt::Key_1, Qt::AltModifier); // of the task that is typed in
        QCOMPARE(task(call).priority, KWTaskPriorityLow);
        QCOMPARE(task(bread).priority, KWTaskPriorityNone);
        m_client->type(u" bank"_s);
        m_client->clock.advance(std::chrono::seconds{1});
        QCOMPARE(task(call).title, u"Call the bank"_s);
        QCOMPARE(task(bread).title, u"Bread"_s);
        list().setFocus();
        QCOMPARE(title.text(), task(list().currentTask()).title);

        title.setFocus();
        const QString gone = list().currentTask();
        ObjectContext &context = m_client->kit().context();
        KWTask::trashTaskAndDescendants({context.find<KWTask>(gone)}, context);
        QVERIFY(context.save());
        QTRY_VERIFY(!pane().model().indexOf(gone).isValid());
        QVERIFY(!title.hasFocus()); // nothing is typed into another task
    }

    void sheetOfANarrowWindowIsClosed()
    {
        m_client->window()->resize(720, 600);
        auto &title = m_client->find<CommittingTextEdit>("taskTitle");
        const auto open = [&] {
            goTo(taskRow(u"Bread"_s));
            m_client->press(Qt::Key_Return);
            QVERIFY(title.isVisible());
        };
        open();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualRect(taskRow(u"Water"_s)).center() - QPoint{60, 0});
        QVERIFY(!title.isVisible());
        open();
        QTest::mouseClick(&m_client->find<QAbstractButton>("closeDetail"), Qt::LeftButton);
        QVERIFY(!title.isVisible() && list().hasFocus());
        open();
        list().setFocus();
        m_client->press(Qt::Key_Escape);
        QVERIFY(!title.isVisible());
    }

    void asksForListsAndTagsByTyping()
    {
        QVERIFY(m_client->rooms().newTasks().add(u"Memo ~Office #errand"_s));
        list().selectTasks(idsOf({u"Water"_s, u"Idea"_s}));
        list().setFocus();
        const auto answer = [this](const QString &entry, const QString &typed) {
            chooseInMenu(entry);
            auto *popup = QApplication::activePopupWidget();
            QVERIFY(popup);
            QTest::keyClicks(popup->findChild<QLineEdit *>(), typed);
            QTest::keyClick(popup->findChild<QLineEdit *>(), Qt::Key_Return);
        };
        answer(u"Tags…"_s, u"err"_s);
        QCOMPARE(task(idOf(u"Idea"_s)).tags, QStringList{u"errand"_s});
        const QString water = idOf(u"Water"_s);
        answer(u"Move to List…"_s, u"off"_s);
        QTRY_COMPARE(pane().model().tasks().size(), 4);
        QCOMPARE(m_client->kit().context().find<KWProject>(task(water).projectID)->model().name, u"Office"_s);
        undo();
        QTRY_COMPARE(pane().model().tasks().size(), 6);
    }

    void sortsEachListByItsOwnType()
    {
        sortBy(u"By Priority"_s);
        QTRY_VERIFY(shown().startsWith(u"[High] Call"_s));
        m_client->openList(u"Today"_s);
        QVERIFY(!shown().contains(u"[High]"_s));
        m_client->openList(u"Inbox"_s);
        QTRY_VERIFY(shown().startsWith(u"[High] Call"_s));
        m_client->openList(u"Trash"_s);
        QVERIFY(!m_client->find<QAbstractButton>("sortButton").isVisible());
    }
};

ORVANE_TEST(TaskListPage_test)
#include "TaskListPage_test.moc"
