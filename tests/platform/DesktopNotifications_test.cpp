#include "platform/DesktopNotifications.h"

#include "app/KWUserNotificationHandler.h"
#include "app/RecordingAlerts.h"
#include "model/records/KWTask.h"
#include "platform/FakeNotificationServer.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDBusServiceWatcher>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class DesktopNotifications_test : public QObject {
    Q_OBJECT

    struct Scene {
        Scene()
        {
            desktop.onResponse = [this](const auto &each) {
                heard << each.identifier + u' ' + each.action + u' ' + each.activationToken;
            };
            desktop.onClosed = [this](const QString &identifier) { heard << identifier + u" closed"_s; };
        }
        void show(const QString &title)
        {
            desktop.show({.identifier = title,
                          .title = title,
                          .body = u"a <b>"_s,
                          .actions = {{u"default"_s, u"Open"_s}, {u"complete"_s, u"Complete"_s}}});
        }
        RecordingNotifications panel;
        DesktopNotifications desktop{panel};
        QStringList heard;
    };

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
    }

    void remindsAndDoesWhatIsPressed()
    {
        FakeNotificationServer server;
        RecordingNotifications panel;
        DesktopNotifications desktop{panel};
        StoreFixture store{"2030-05-01 08:00"};
        OrvaneKit &kit = store.kit();
        KWUserNotificationHandler handler{{store.clock, kit.manager(), kit.account(), kit.defaults(),
                                           kit.center(), kit.bus(), desktop, [](const LaunchRequest &) {}}};
        const QString id = aTask("Call").startingAt("2030-05-01 09:00").savedIn(store);
        setSaved<KWTask>(store, id, &KWTaskModel::reminders, {u"TRIGGER:PT0S"_s});
        handler.applicationDidFinishLaunching();

        const KWTask *task = store.context().find<KWTask>(id);
        const auto press = [&](const char *due, const QString &key) {
            const qsizetype before = server.messages.size();
            store.clock.setNow(at(due));
            QTRY_COMPARE(server.messages.size(), before + 1);
            QCOMPARE(server.messages.last().title, u"Call"_s);
            QVERIFY(!task->isCompleted() && server.messages.last().actions.contains(key));
            server.press(server.messages.last().id, key);
        };
        press("2030-05-01 09:00", u"snooze-10"_s);
        QTRY_COMPARE(task->model().snoozedRemindDate, at("2030-05-01 09:10"));
        press("2030-05-01 09:10", u"snooze-60"_s);
        QTRY_COMPARE(task->model().snoozedRemindDate, at("2030-05-01 10:10"));
        press("2030-05-01 10:10", u"complete"_s);
        QTRY_VERIFY(task->isCompleted());
    }

    void showsReplacesAndTakesBack()
    {
        FakeNotificationServer server;
        Scene scene;
        scene.show(u"Call"_s);
        QTRY_COMPARE(server.messages.size(), 1);
        const auto first = server.messages.first();
        QCOMPARE(first.title, u"Call"_s);
        QCOMPARE(first.body, u"a &lt;b&gt;"_s);
        QCOMPARE(first.hints.value(u"desktop-entry"_s), u"org.orvane.Orvane"_s);
        QVERIFY(!first.hints.contains(u"image-path"_s));
        QCOMPARE(first.actions, QStringList({u"default"_s, u"Open"_s, u"complete"_s, u"Complete"_s}));
        server.press(99, u"complete"_s); // somebody else's
        server.press(first.id, u"complete"_s);
        QTRY_COMPARE(scene.heard, QStringList({u"Call complete token"_s, u"Call closed"_s}));

        scene.show(u"Write"_s);
        scene.show(u"Write"_s); // while the first one is on its way
        QTRY_COMPARE(server.messages.size(), 3);
        QTRY_VERIFY(server.closed.contains(server.messages.at(1).id));
        const uint shown = server.messages.at(2).id;
        QVERIFY(!server.closed.contains(shown));
        scene.show(u"Write"_s);
        QTRY_COMPARE(server.messages.size(), 4);
        QCOMPARE(server.messages.last().replaced, shown);
        scene.heard.clear();
        server.tell(qPrintable(server.service), "NotificationClosed", {shown, 2u});
        scene.show(u"Write"_s); // before it is heard that the one it replaces has closed
        QTRY_COMPARE(server.messages.size(), 5);
        server.press(server.messages.last().id, u"complete"_s);
        QTRY_COMPARE(scene.heard, QStringList({u"Write complete token"_s, u"Write closed"_s}));
        QVERIFY(!server.closed.contains(shown));
        scene.show(u"Write"_s);
        QTRY_COMPARE(server.messages.size(), 6);
        scene.show(u"Write"_s);
        QTRY_COMPARE(server.messages.size(), 7);
        scene.desktop.withdraw(u"Write"_s);
        QTRY_VERIFY(server.closed.contains(server.messages.last().id));

        scene.show(u"Late"_s);
        scene.desktop.withdraw(u"Late"_s); // on its way
        QTRY_COMPARE(server.messages.size(), 8);
        QTRY_VERIFY(server.closed.contains(server.messages.last().id));
        QCOMPARE(scene.panel.titles, QStringList{});
    }

    void usesThePanelWhileThereIsNoServerAndLearnsOfAnother()
    {
        const QDBusServiceWatcher watch{FakeNotificationServer::service, QDBusConnection::sessionBus(),
                                        QDBusServiceWatcher::WatchForUnregistration};
        QSignalSpy gone{&watch, &QDBusServiceWatcher::serviceUnregistered};
        Scene scene;
        scene.show(u"First"_s);
        scene.show(u"Second"_s);
        QTRY_COMPARE(scene.panel.titles, QStringList({u"First"_s, u"Second"_s}));
        scene.panel.onResponse({u"First"_s, u"complete"_s, {}});
        QCOMPARE(scene.heard.takeFirst(), u"First complete "_s);
        {
            FakeNotificationServer server;
            scene.show(u"Call"_s);
            QTRY_COMPARE(server.messages.size(), 1);
        }
        QTRY_COMPARE(gone.count(), 1);
        {
            FakeNotificationServer restarted{{u"body"_s}};
            scene.show(u"Write"_s);
            scene.show(u"Call"_s);
            QTRY_COMPARE(restarted.messages.size(), 2);
            QCOMPARE(restarted.messages.first().actions, QStringList{}); // it knows text alone
            QCOMPARE(restarted.messages.first().body, u"a <b>"_s);
            QCOMPARE(restarted.messages.last().replaced, 0u);
            restarted.press(restarted.messages.first().id, u"default"_s); // the id that “Call” had before
            QTRY_COMPARE(scene.heard.value(0), u"Write default token"_s);
        }
        scene.show(u"Fourth"_s); // the server has gone, unnoticed
        QTRY_COMPARE(scene.panel.titles.size(), 3);
    }
};

ORVANE_TEST(DesktopNotifications_test)
#include "DesktopNotifications_test.moc"
