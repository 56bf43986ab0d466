#include "gui/MainWindowHands.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/TaskBatch.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListModel.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

/// Items of checklists with a date, among the tasks of Today.
class ChecklistRows_test : public QObject, MainWindowHands {
    Q_OBJECT

    KWTaskModel task(const QString &title)
    {
        return m_client->kit().context().models<KWTask>({.where = "title = ?", .values = {title}}).first();
    }
    KWChecklistItemModel item() { return m_client->kit().context().models<KWChecklistItem>({}).first(); }
    bool canSetPriority() { return m_client->rooms().menu().action(MenuCommand::PriorityHigh).isEnabled(); }
    std::optional<int> countOfToday() { return treeModel().nodeAt(listRow(u"Today"_s))->count(); }

private Q_SLOTS:
    void init()
    {
        startClient();
        for (const QString &each : {u"Call"_s, u"Travel"_s})
            QVERIFY(m_client->rooms().newTasks().add(each));
        const Day today = m_client->clock.today();
        QVERIFY(TaskBatch{m_client->kit().manager()}.setDay({task(u"Call"_s).sid}, today));
        const auto added =
            KWTaskEditor{m_client->kit().manager()}.addItem(task(u"Travel"_s).sid, {}, u"Passport"_s);
        QVERIFY(added && TaskBatch{m_client->kit().manager()}.setDay({*added}, today));
        m_client->openList(u"Today"_s);
        QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);
    }
    void cleanup() { endClient(); }

    void isTickedDatedAndDeletedByKeys()
    {
        goTo(taskRow(u"Passport"_s));
        QCOMPARE(list().currentTask(), task(u"Travel"_s).sid);
        m_client->press(Qt::Key_Space);
        QTRY_COMPARE(shown(), u"[Today] Call"_s);
        QVERIFY(item().isCompleted());
        QCOMPARE(task(u"Travel"_s).status, KWTaskStatusOpen);
        undo();
        QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);

        goTo(taskRow(u"Passport"_s));
        m_client->press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(shown(), u"[Today] Call"_s);
        QVERIFY(!task(u"Travel"_s).startDate);
        m_client->openList(u"Tomorrow"_s);
        QTRY_COMPARE(shown(), u"[Tomorrow] Passport"_s);
        undo();
        m_client->openList(u"Today"_s);
        QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);

        for (const bool isLate : {false, true}) { // with its message, and when that has gone
            goTo(taskRow(u"Passport"_s));
            m_client->press(Qt::Key_Delete);
            QTRY_COMPARE(shown(), u"[Today] Call"_s);
            if (isLate) m_client->clock.advance(std::chrono::seconds{6});
            undo();
            QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);
        }
        QVERIFY(!task(u"Travel"_s).isTrashed);
    }

    void isRenamedInItsRow()
    {
        goTo(taskRow(u"Passport"_s));
        m_client->press(Qt::Key_F2);
        auto &editor = m_client->find<QLineEdit>("taskRowTitleEditor");
        editor.setText({});
        QTest::keyClicks(&editor, u"Visa"_s);
        QTest::keyClick(&editor, Qt::Key_Return);
        QTRY_COMPARE(shown(), u"[Today] Call Visa"_s);
        QCOMPARE(item().title, u"Visa"_s);
        QCOMPARE(task(u"Travel"_s).kind, KWTaskKindChecklist);
    }

    void commandsForTasksLeaveItAlone()
    {
        goTo(taskRow(u"Passport"_s));
        QVERIFY(!canSetPriority());
        const QString before = shown();
        m_client->press(Qt::Key_Up, Qt::AltModifier);
        m_client->press(Qt::Key_BracketRight, Qt::ControlModifier);
        QCOMPARE(shown(), before);
        m_client->press(Qt::Key_A, Qt::ControlModifier);
        QVERIFY(canSetPriority());
        goTo(taskRow(u"Passport"_s));
        QVERIFY(!canSetPriority());

        list().selectTasks({idOf(u"Call"_s), idOf(u"Passport"_s)});
        m_client->press(Qt::Key_3, Qt::AltModifier);
        chooseInMenu(u"Pin"_s);
        QCOMPARE(task(u"Call"_s).priority, KWTaskPriorityHigh);
        QCOMPARE(task(u"Travel"_s).priority, KWTaskPriorityNone);
        QVERIFY(task(u"Call"_s).pinnedDate && !task(u"Travel"_s).pinnedDate);
        QTRY_COMPARE(shown(), u"[Pinned] Call [Today] Passport"_s);
        undo();
        QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);
    }

    void goesAlongWithSelectedTasks()
    {
        QTRY_COMPARE(countOfToday(), std::optional{2});
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete}) {
            list().selectTasks({idOf(u"Call"_s), idOf(u"Passport"_s)});
            list().setFocus();
            m_client->press(key);
            QTRY_COMPARE(countOfToday(), std::optional{0});
            undo();
            QTRY_COMPARE(shown(), u"[Today] Call Passport"_s);
        }
        goTo(taskRow(u"Passport"_s));
        chooseInMenu(u"Delete"_s);
        QTRY_COMPARE(shown(), u"[Today] Call"_s);
        QTRY_COMPARE(countOfToday(), std::optional{1});
    }
};

ORVANE_TEST(ChecklistRows_test)
#include "ChecklistRows_test.moc"
