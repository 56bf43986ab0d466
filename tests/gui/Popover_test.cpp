#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"
#include "views/statusitem/PopoverWindow.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>

using namespace Qt::StringLiterals;

/// The quick view of today, without a status area: as a command of the main menu.
class Popover_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    QString m_taskID; // of the one task of today

    StatusItem &item() { return m_client->rooms().statusItem(); }
    PopoverWindow &popover() { return *item().popover(); }
    void open()
    {
        m_client->rooms().menu().action(MenuCommand::ShowPopover).trigger();
        QVERIFY(QTest::qWaitForWindowActive(&popover()));
    }
    void add(const QString &text)
    {
        QTest::keyClicks(&popover().addField(), text);
        QTest::keyClick(&popover().addField(), Qt::Key_Return);
    }
    QString titles() { return joined(popover().model().tasks(), &KWTaskListItemModel::title); }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        open();
        QVERIFY(popover().addField().hasFocus());
        add(u"Feed the cat"_s);
        QTRY_COMPARE(titles(), u"Feed the cat"_s);
        m_taskID = popover().model().tasks().constFirst().sid;
    }
    void cleanup() { m_client.reset(); }

    void addsAndTicksTheTasksOfToday()
    {
        QVERIFY(!item().isShown()); // the offscreen platform has no status area
        add(u"Call the venue tomorrow"_s);
        popover().list().selectTask(m_taskID);
        QTest::keyClick(&popover().list(), Qt::Key_Space);
        QTRY_VERIFY(popover().model().tasks().constFirst().isClosed());
    }

    void leavesOutWhatIsBeingDeleted()
    {
        m_client->rooms().statusItem().resetPopover();
        m_client->rooms().deletes().deleteTasks({m_taskID});
        open();
        QCOMPARE(titles(), QString{});
        m_client->rooms().deletes().undo();
        QTRY_COMPARE(titles(), u"Feed the cat"_s);
    }

    void goesByEscapeAndComesAgain()
    {
        QTest::keyClick(&popover().addField(), Qt::Key_Escape);
        QVERIFY(!popover().isVisible());
        open();
        QTest::keyClick(&popover().addField(), Qt::Key_Down);
        QVERIFY(popover().focusWidget() == &popover().list());
        QTest::keyClick(&popover().list(), Qt::Key_Escape);
        QVERIFY(!popover().isVisible());
        open();
        QVERIFY(popover().isVisible());
    }

    void aQuestionIsAPartOfIt()
    {
        const QString day = popover().header().accessibleDescription();
        QApplication::clipboard()->setText(u"Milk\nBread"_s);
        QTest::keyClick(&popover().addField(), Qt::Key_V, Qt::ControlModifier);
        answerNextAlert(Qt::Key_Return);
        QTRY_COMPARE(popover().model().tasks().size(), 3);
        QTRY_VERIFY(popover().isActiveWindow());
        QCOMPARE(popover().header().accessibleDescription(), u"2 tasks added"_s);
        QTest::keyClicks(&popover().addField(), u"x"_s);
        QCOMPARE(popover().header().accessibleDescription(), day);
    }

    void leadsToTheTaskInTheWindow()
    {
        m_client->openList(u"Tomorrow"_s);
        popover().list().selectTask(m_taskID);
        QTest::keyClick(&popover().list(), Qt::Key_Return);
        QVERIFY(!popover().isVisible());
        QTRY_COMPARE(m_client->find<TaskListView>("taskList").currentTask(), m_taskID);
    }

    void goesWithTheAccount()
    {
        QVERIFY(m_client->kit().account().signOut());
        QVERIFY(!item().popover());
    }
};

ORVANE_TEST(Popover_test)
#include "Popover_test.moc"
