#include "focus/FocusMessages.h"
#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "platform/DesktopNotifications.h"
#include "platform/FakeNotificationServer.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "views/alerts/AlertPresenter.h"
#include "views/alerts/NotificationPanel.h"
#include "views/focus/FocusQuestions.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Pomos of the whole client, followed by the messages of the desktop and the sheets of the window.
class FocusMessages_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
    }

    void goesOnByWhatIsPressedOnMessages()
    {
        FakeNotificationServer server;
        NotificationPanel panel;
        DesktopNotifications desktop{panel};
        ClientFixture client;
        client.useOnThisComputer();
        client.restart({.notifications = desktop});
        KWPomoRunningManager &pomo = client.rooms().focus().pomo();

        pomo.oc_startFocus();
        const auto press = [&](std::chrono::minutes after, const QString &title, const QString &key) {
            const qsizetype before = server.messages.size();
            client.clock.advance(after);
            QTRY_COMPARE(server.messages.size(), before + 1);
            QCOMPARE(server.messages.last().title, title);
            QVERIFY(server.messages.last().actions.contains(key));
            const QUrl image{server.messages.last().hints.value(u"image-path"_s).toString()};
            QVERIFY(image.isLocalFile() && bytesOf(image.toLocalFile()).startsWith("<svg"));
            server.press(server.messages.last().id, key);
        };
        press(25min, u"You've got a Pomo. Time to relax."_s, u"POMO_RELAX"_s);
        QTRY_COMPARE(pomo.state(), KWPomoRunningState::short_relaxing);
        press(5min, u"Break ended. Start a new timer?"_s, u"POMO_START"_s);
        QTRY_VERIFY(pomo.isFocusing());
        press(25min, u"You've got a Pomo. Time to relax."_s, u"Exit"_s);
        QTRY_COMPARE(pomo.state(), KWPomoRunningState::idle);
        // A click on the message itself shows the window and leaves the Pomo alone.
        client.window()->hide();
        pomo.oc_startFocus();
        press(25min, u"You've got a Pomo. Time to relax."_s, u"default"_s);
        QTRY_VERIFY(client.window()->isVisible());
        QCOMPARE(pomo.state(), KWPomoRunningState::waitingToRelax);
    }

    void tellsInItsOwnPanelWhereThereIsNoServer()
    {
        NotificationPanel panel;
        DesktopNotifications desktop{panel};
        ClientFixture client;
        client.useOnThisComputer();
        client.restart({.notifications = desktop});
        client.rooms().focus().pomo().oc_startFocus();
        client.clock.advance(25min);
        QTRY_VERIFY(panel.window() && panel.window()->isVisible());
        client.rooms().focus().pomo().oc_startFocus();
        QTRY_VERIFY(!panel.window() || !panel.window()->isVisible());
    }

    void asksInASheetAndTakesItBack()
    {
        ClientFixture client;
        client.useOnThisComputer();
        QVERIFY(client.rooms().newTasks().add(u"Write"_s));
        const auto choices =
            focusTargetChoices(client.kit().account().currentUserID(), {}, client.kit().context());
        QVERIFY(!choices.isEmpty());
        const FocusTarget target = choices.first().target;

        KWPomoRunningManager &pomo = client.rooms().focus().pomo();
        const auto sheet = [&] { return client.window()->findChild<QDialog *>(u"alert"_s); };
        pomo.oc_startFocus();
        client.clock.advance(10min);
        client.rooms().focus().manager().setTarget(target);
        QVERIFY(sheet() && sheet()->isVisible());
        sheet()->findChild<QAbstractButton *>(u"alertButton0"_s)->click();
        QCOMPARE(pomo.focusSlices().size(), 1);
        QCOMPARE(pomo.focusSlices().first().target, target);
        QTRY_VERIFY(!sheet());

        pomo.abandonFocusing();
        pomo.oc_startFocus();
        client.clock.advance(10min);
        client.rooms().focus().manager().setTarget(target);
        QVERIFY(sheet());
        client.clock.advance(15min); // nobody answered
        QTRY_VERIFY(!sheet());
        QCOMPARE(pomo.state(), KWPomoRunningState::waitingToRelax);
    }

    void escapeLosesNoTime_data()
    {
        QTest::addColumn<FocusQuestion>("question");
        QTest::addColumn<int>("expected");
        QTest::newRow("it is kept") << FocusMessages::leftPomo(10min) << 0;
        QTest::newRow("it stays where it was") << FocusMessages::belonging(u"Write"_s) << 1;
        QTest::newRow("it goes on") << FocusMessages::abandonment() << 1;
    }
    void escapeLosesNoTime()
    {
        QFETCH(const FocusQuestion, question);
        QFETCH(const int, expected);
        AlertPresenter alerts;
        FocusQuestions questions{alerts, [] { return nullptr; }};
        int answer = -1;
        questions.ask(question, [&answer](int button) { answer = button; });
        answerNextAlert(Qt::Key_Escape);
        QTRY_COMPARE(answer, expected);
    }
};

ORVANE_TEST(FocusMessages_test)
#include "FocusMessages_test.moc"
