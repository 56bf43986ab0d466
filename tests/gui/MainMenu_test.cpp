#include "gui/ClientFixture.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/main/MainWindow.h"
#include "views/print/ListPrint.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTextDocument>

using namespace Qt::StringLiterals;

/// The main menu and its keys, in the real window.
class MainMenu_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    MainMenu &menu() { return m_client->rooms().menu(); }
    MainWindow &window() { return *m_client->window(); }
    TaskListView &list() { return window().listPane().list(); }
    QString head() { return window().listPane().header().accessibleName(); }
    KWTaskModel task()
    {
        m_client->kit().manager().refreshAll();
        return m_client->kit().context().models<KWTask>({}).constFirst();
    }
    void goToTask()
    {
        list().selectTask(task().sid);
        list().setFocus();
    }
    void press(const char *keys)
    {
        const QKeySequence sequence{QLatin1StringView{keys}};
        QTest::keySequence(QApplication::focusWidget(), sequence);
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>(); // Saturday 2026-11-21, 09:00
        m_client->useOnThisComputer();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        m_client->type(u"Call the venue 17:00"_s);
        m_client->press(Qt::Key_Return);
        QTRY_COMPARE(m_client->shownTitles(), QStringList{u"Call the venue"_s});
    }
    void cleanup() { m_client.reset(); }

    void whatCannotBeChosenSaysWhy()
    {
        list().setCurrentIndex({});
        QVERIFY(!menu().action(MenuCommand::SetToday).isEnabled());
        QVERIFY(!menu().action(MenuCommand::SetToday).toolTip().isEmpty());
        goToTask();
        QVERIFY(menu().action(MenuCommand::SetToday).isEnabled());
    }

    void keysWorkOnTheSelectedTask()
    {
        m_client->openList(u"Inbox"_s);
        for (const CaseRow &row : readCases("gui/task-keys.txt", 3)) {
            goToTask();
            press(row.cells[0].toLatin1().constData());
            const KWTaskModel expected = aTask("").when(row.cells[2]).model();
            QVERIFY2(task().priority == row.cells[1].toInt(), row.where);
            QVERIFY2(task().startDate == expected.startDate, row.where);
            QVERIFY2(task().isAllDay == expected.isAllDay, row.where);
        }
        press("Ctrl+Shift+Return");
        QCOMPARE(task().status, KWTaskStatusCompleted);
    }

    void theDatePickerAnswersToTheKeyboard()
    {
        goToTask();
        press("Ctrl+D");
        auto *picker = window().findChild<SchedulePicker *>();
        QVERIFY(picker);
        auto *title = picker->findChild<QLabel *>(u"datePickerTitle"_s);
        QCOMPARE(title->text(), u"November 2026"_s);
        picker->findChild<QAbstractButton *>(u"monthBefore"_s)->click();
        QCOMPARE(title->text(), u"October 2026"_s);
        picker->findChild<QAbstractButton *>(u"monthAfter"_s)->click();
        QTest::keyClick(picker->findChild<QWidget *>(u"qt_calendar_calendarview"_s), Qt::Key_Down);
        QTest::keyClick(picker->findChild<QWidget *>(u"qt_calendar_calendarview"_s), Qt::Key_Return);
        QCOMPARE(*task().startDate, at("2026-11-28 17:00"));
        QTRY_VERIFY(!window().findChild<SchedulePicker *>());
        window().activateWindow(); // what a window manager does when the picker goes
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        m_client->openList(u"Inbox"_s);
        goToTask();
        press("Ctrl+D");
        window().findChild<QPushButton *>(u"pickNoDate"_s)->click();
        QVERIFY(!task().startDate);
    }

    void keysOpenLists_data() { addCaseRows("gui/list-keys.txt", 3); }
    void keysOpenLists()
    {
        QFETCH(QStringList, cells);
        const QString &title = cells[1];
        press(cells[0].toLatin1().constData());
        QCOMPARE(head(), title);
        const bool takesTasks = cells[2] == u"yes";
        QCOMPARE(window().listPane().addField().isVisible(), takesTasks);
        press("Ctrl+N");
        QVERIFY(window().listPane().addField().hasFocus());
        QCOMPARE(head(), takesTasks ? title : u"Today"_s);
        m_client->restart();
        QVERIFY(!head().isEmpty());
    }

    void altShowsTheBarAndEscapeHidesIt()
    {
        auto &bar = m_client->find<QMenuBar>("menuBar");
        QVERIFY(bar.isHidden());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt);
        QVERIFY(bar.isVisible());
        QCOMPARE(bar.actions().size(), 7);
        QCOMPARE(bar.height(), bar.sizeHint().height());
        QTest::keyClick(&bar, Qt::Key_Escape);
        QVERIFY(bar.isHidden());
        QVERIFY(window().listPane().addField().hasFocus());
        press("F10");
        QVERIFY(bar.isVisible());
        QTest::keyClick(&bar, Qt::Key_Escape);
        QVERIFY(bar.isHidden());
        // A shortcut with Alt is no Alt.
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_2, Qt::AltModifier);
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt);
        QVERIFY(bar.isHidden());
    }

    void theButtonOpensTheMenu()
    {
        m_client->find<QAbstractButton>("menuButton").click();
        auto *popup = window().findChild<QMenu *>(u"mainMenu"_s);
        QVERIFY(popup && popup->isVisible());
        QVERIFY(popup->actions().contains(&menu().action(MenuCommand::Quit)));
        QCOMPARE(menu().action(MenuCommand::Quit).text(), u"Quit Orvane"_s);
        popup->close();
    }

    void signingOutLeavesTheWelcomeWindow()
    {
        menu().action(MenuCommand::SignOut).trigger();
        QTRY_VERIFY(!m_client->window());
        QVERIFY(m_client->rooms().welcomeWindow().window());
        QVERIFY(!menu().action(MenuCommand::AddTask).isEnabled());
        m_client->useOnThisComputer();
        QVERIFY(!m_client->rooms().welcomeWindow().window());
        QVERIFY(menu().action(MenuCommand::AddTask).isEnabled());
        QCOMPARE(m_client->shownTitles(), QStringList{u"Call the venue"_s});
    }

    void paperShowsTheList()
    {
        const auto document = ListPrint::document(u"Today"_s, window().listPane().model());
        QVERIFY2(document->toPlainText().endsWith(u"\n☐ Call the venue  ·  17:00"),
                 qPrintable(document->toPlainText()));
    }
};

ORVANE_TEST(MainMenu_test)
#include "MainMenu_test.moc"
