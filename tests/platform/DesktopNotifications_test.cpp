#include "platform/DesktopNotifications.h"

#include "app/KWUserNotificationHandler.h"
#include "model/records/KWTask.h"
#include "platform/FakeService.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDBusServiceWatcher>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct RecordingPanel final : UserNotificationCenterPort {
    void show(const UserNotification &notification) override { titles << notification.title; }
    QStringList titles;
};

UserNotification messageTitled(const QString &title, const QString &body = {})
{
    return {.identifier = title,
            .title = title,
            .body = body,
            .actions = {{u"default"_s, u"Open"_s}, {u"complete"_s, u"Complete"_s}}};
}

} // namespace

/// The notification server of a desktop.
class FakeNotificationServer : public FakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Message {
        uint id;
        uint replaced;
        QString title;
        QString body;
        QStringList actions;
    };

    explicit FakeNotificationServer(QStringList abilities = {u"actions"_s, u"body-markup"_s})
        : FakeService{u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s}
        , m_abilities(std::move(abilities))
    {
    }
    void press(uint id, const QString &key)
    {
        constexpr auto interface = "org.freedesktop.Notifications";
        tell(interface, "ActivationToken", {id, u"token"_s});
        tell(interface, "ActionInvoked", {id, key});
        tell(interface, "NotificationClosed", {id, 2u});
    }

    QList<Message> messages;
    QList<uint> closed;
    int questions = 0;

public Q_SLOTS:
    QStringList GetCapabilities()
    {
        ++questions;
        return m_abilities;
    }
    uint Notify(const QString &, uint replaced, const QString &, const QString &title, const QString &body,
                const QStringList &actions, const QVariantMap &, int)
    {
        const uint id = replaced != 0 ? replaced : uint(messages.size()) + 7;
        messages.append({id, replaced, title, body, actions});
        return id;
    }
    void CloseNotification(uint id) { closed << id; }

private:
    QStringList m_abilities;
};

class DesktopNotifications_test : public QObject {
    Q_OBJECT

    RecordingPanel m_panel;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QDBusConnection::sessionBus().isConnected(), "run it on a bus");
        QCoreApplication::processEvents();
    }
    void init() { m_panel.titles.clear(); }

    void remindsAndDoesWhatIsPressed()
    {
        FakeNotificationServer server;
        StoreFixture store{"2030-05-01 08:00"};
        DesktopNotifications desktop{m_panel};
        OrvaneKit &kit = store.kit();
        QList<LaunchRequest> opened;
        KWUserNotificationHandler handler{{store.clock, kit.manager(), kit.account(), kit.defaults(),
                                           kit.center(), kit.bus(), desktop,
                                           [&opened](const LaunchRequest &each) { opened << each; }}};
        const QString id = aTask("Call").startingAt("2030-05-01 09:00").savedIn(store);
        setSaved<KWTask>(store, id, &KWTaskModel::reminders, {u"TRIGGER:PT0S"_s});
        const auto task = [&] { return store.context().find<KWTask>(id); };
        handler.applicationDidFinishLaunching();

        store.clock.advance(1h);
        QTRY_COMPARE(server.messages.size(), 1);
        QCOMPARE(server.messages.last().title, u"Call"_s);
        QCOMPARE(server.messages.last().actions.first(2), QStringList({u"default"_s, u"Open"_s}));
        server.press(99, u"complete"_s); // somebody else's
        server.press(server.messages.last().id, u"snooze-10"_s);
        QTRY_COMPARE(task()->model().snoozedRemindDate, at("2030-05-01 09:10"));
        QVERIFY(!task()->isCompleted());

        store.clock.advance(10min);
        QTRY_COMPARE(server.messages.size(), 2);
        server.press(server.messages.last().id, u"default"_s);
        QTRY_COMPARE(opened.size(), 1);
        QCOMPARE(opened.first().activationToken, u"token"_s);

        QVERIFY(KWReminderService{kit.manager()}.snooze({id, {}}, at("2030-05-01 10:00")));
        store.clock.advance(50min);
        QTRY_COMPARE(server.messages.size(), 3);
        server.press(server.messages.last().id, u"complete"_s);
        QTRY_VERIFY(task()->isCompleted());
        QCOMPARE(server.questions, 1);
        QCOMPARE(m_panel.titles, QStringList{});
    }

    void replacesAndTakesBack()
    {
        FakeNotificationServer server;
        DesktopNotifications desktop{m_panel};
        desktop.show(messageTitled(u"Call"_s, u"a <b>"_s));
        QTRY_COMPARE(server.messages.size(), 1);
        QCOMPARE(server.messages.first().body, u"a &lt;b&gt;"_s);
        QCoreApplication::processEvents();
        desktop.show(messageTitled(u"Call"_s));
        QTRY_COMPARE(server.messages.size(), 2);
        QTRY_COMPARE(server.messages.last().replaced, server.messages.first().id);
        desktop.withdraw(u"Call"_s);
        QTRY_COMPARE(server.closed, QList{server.messages.first().id});

        desktop.show(messageTitled(u"Late"_s));
        desktop.withdraw(u"Late"_s); // on its way
        QTRY_COMPARE(server.closed.size(), 2);
    }

    void mistakesNoMessageOfAnotherServerForItsOwn()
    {
        DesktopNotifications desktop{m_panel};
        QStringList pressed;
        desktop.onResponse = [&pressed](const auto &response) { pressed << response.identifier; };
        const QDBusServiceWatcher watch{u"org.freedesktop.Notifications"_s, QDBusConnection::sessionBus(),
                                        QDBusServiceWatcher::WatchForUnregistration};
        QSignalSpy gone{&watch, &QDBusServiceWatcher::serviceUnregistered};
        {
            FakeNotificationServer server;
            desktop.show(messageTitled(u"Call"_s));
            QTRY_COMPARE(server.messages.size(), 1);
        }
        QTRY_COMPARE(gone.count(), 1);
        FakeNotificationServer restarted{{u"body"_s}};
        desktop.show(messageTitled(u"Write"_s, u"a <b>"_s));
        QTRY_COMPARE(restarted.messages.size(), 1);
        QCOMPARE(restarted.messages.first().actions, QStringList{}); // it knows text alone
        QCOMPARE(restarted.messages.first().body, u"a <b>"_s);
        QCOMPARE(restarted.questions, 1);
        desktop.show(messageTitled(u"Call"_s));
        QTRY_COMPARE(restarted.messages.size(), 2);
        QCOMPARE(restarted.messages.last().replaced, 0u);
        restarted.press(restarted.messages.first().id, u"default"_s); // the id that “Call” had before
        QTRY_COMPARE(pressed, QStringList{u"Write"_s});
    }

    void usesThePanelUntilThereIsAServer()
    {
        DesktopNotifications desktop{m_panel};
        QStringList pressed;
        desktop.onResponse = [&pressed](const auto &response) { pressed << response.action; };
        desktop.show(messageTitled(u"First"_s));
        desktop.show(messageTitled(u"Second"_s));
        QTRY_COMPARE(m_panel.titles, QStringList({u"First"_s, u"Second"_s}));
        m_panel.onResponse({u"First"_s, u"complete"_s, {}});
        QCOMPARE(pressed, QStringList{u"complete"_s});
        {
            FakeNotificationServer server;
            desktop.show(messageTitled(u"Third"_s));
            QTRY_COMPARE(server.messages.size(), 1);
        }
        desktop.show(messageTitled(u"Fourth"_s)); // the server has gone
        QTRY_COMPARE(m_panel.titles.size(), 3);
    }
};

ORVANE_TEST(DesktopNotifications_test)
#include "DesktopNotifications_test.moc"
