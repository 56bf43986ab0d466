#include "app/KWUserNotificationHandler.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/settings/ClockFormat.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct RecordingNotifications final : UserNotificationCenterPort {
    void show(const UserNotification &notification) override { shown << notification; }
    void withdraw(const QString &identifier) override { withdrawn << identifier; }
    QStringList takeTitles()
    {
        QStringList titles;
        for (const UserNotification &each : std::exchange(shown, {}))
            titles << each.title;
        return titles;
    }
    QList<UserNotification> shown;
    QStringList withdrawn;
};

struct NotificationScene {
    StoreFixture store{"2030-05-01 08:00"};
    RecordingNotifications notifications;
    QList<LaunchRequest> opened;
    QStringList pendingDeletes;
    std::unique_ptr<KWUserNotificationHandler> handler;

    NotificationScene() { start(); }
    void start()
    {
        OrvaneKit &kit = store.kit();
        handler = std::make_unique<KWUserNotificationHandler>(KWUserNotificationHandler::Collaborators{
            store.clock, kit.manager(), kit.account(), kit.defaults(), kit.center(), kit.bus(), notifications,
            [this](const LaunchRequest &request) { opened << request; },
            [this](const QString &id) { return pendingDeletes.contains(id); }});
        handler->applicationDidFinishLaunching();
        store.clock.advance(0ms);
    }
    /// The program breaks off, and starts again later.
    void closeFor(milliseconds duration)
    {
        handler.reset();
        store.clock.advance(duration);
        store.reopen();
        start();
    }
    QString addTask(const char *title, const char *start, const QStringList &reminders = {u"TRIGGER:PT0S"_s})
    {
        const QString id = aTask(title).startingAt(start).savedIn(store);
        setSaved<KWTask>(store, id, &KWTaskModel::reminders, reminders);
        store.clock.advance(0ms);
        return id;
    }
    void press(const QString &id, const QString &action)
    {
        notifications.onResponse({id, action, u"token"_s});
    }
    KWTaskModel task(const QString &id) { return store.context().find<KWTask>(id)->model(); }
    void fillTheDisk()
    {
        store.context().connection().execute(
            "CREATE TRIGGER full BEFORE UPDATE ON tasks BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    }
    void makeRoom() { store.context().connection().execute("DROP TRIGGER full"); }
    QStringList titlesAfter(milliseconds duration)
    {
        store.clock.advance(duration);
        return notifications.takeTitles();
    }
};

} // namespace

class KWUserNotificationHandler_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void remindsOnTimeAndOnce()
    {
        NotificationScene scene;
        scene.addTask("Call", "2030-05-01 09:00", {u"TRIGGER:-PT10M"_s, u"TRIGGER:PT0S"_s});
        QCOMPARE(scene.titlesAfter(49min), QStringList{});
        scene.store.clock.advance(1min);
        QCOMPARE(scene.notifications.shown.value(0).body, u"Inbox · 09:00"_s);
        QCOMPARE(scene.notifications.takeTitles(), QStringList{u"Call"_s});
        scene.closeFor(1min);
        QCOMPARE(scene.titlesAfter(0ms), QStringList{});
        QCOMPARE(scene.titlesAfter(10min), QStringList{u"Call"_s});
        QCOMPARE(scene.titlesAfter(24h), QStringList{});
    }

    void tellsOfWhatWasMissedTogether()
    {
        NotificationScene scene;
        scene.addTask("First", "2030-05-01 09:00");
        scene.addTask("Second", "2030-05-01 10:00");
        scene.addTask("Third", "2030-05-01 12:00");
        scene.store.clock.sleep(3h);
        QCOMPARE(scene.notifications.shown.value(0).body, u"First · 09:00\nSecond · 10:00"_s);
        QCOMPARE(scene.notifications.takeTitles(), QStringList{u"2 reminders while you were away"_s});
        scene.press(u"digest"_s, u"default"_s);
        QCOMPARE(scene.opened, QList<LaunchRequest>{LaunchRequest{.activationToken = u"token"_s}});
        scene.closeFor(3h);
        QCOMPARE(scene.notifications.takeTitles(), QStringList{u"Third"_s});
        scene.closeFor(1h);
        QCOMPARE(scene.notifications.takeTitles(), QStringList{});
    }

    void staysRightWhenTheClockIsSet()
    {
        NotificationScene scene;
        scene.addTask("Call", "2030-05-01 09:00");
        scene.addTask("Write", "2030-05-01 11:00");
        scene.store.clock.setNow(at("2030-05-01 09:00"));
        QCOMPARE(scene.notifications.takeTitles(), QStringList{u"Call"_s});
        scene.store.clock.setNow(at("2030-05-01 07:00"));
        QCOMPARE(scene.titlesAfter(3h), QStringList{}); // 10:00: not a second time
        QCOMPARE(scene.titlesAfter(1h), QStringList{u"Write"_s});
    }

    void putsOffToTheMorning()
    {
        NotificationScene scene;
        const QString id = scene.addTask("Write", "2030-05-01 15:00");
        scene.store.clock.advance(7h);
        scene.notifications.takeTitles();
        scene.press(u"task:"_s + id, u"snooze-tomorrow"_s);
        scene.closeFor(18h);
        QCOMPARE(scene.notifications.takeTitles(), QStringList{u"Write"_s});
        QCOMPARE(scene.task(id).snoozedRemindDate, std::nullopt);
        scene.press(u"task:"_s + id, u"default"_s);
        QCOMPARE(scene.opened.value(0).links, QStringList{u"orvane://task/"_s + id});
    }

    void ticksAnItemAndMovesARepeatingTaskOn()
    {
        NotificationScene scene;
        const QString daily = scene.addTask("Water", "2030-05-01 09:00");
        setSaved<KWTask>(scene.store, daily, &KWTaskModel::repeatRule, u"FREQ=DAILY"_s);
        QString item;
        saved(scene.store, [&](ObjectContext &context) {
            KWChecklistItemModel model;
            model.userID = scene.store.userID();
            model.taskID = daily;
            model.title = u"Roses"_s;
            model.startDate = at("2030-05-01 09:00");
            item = context.insert<KWChecklistItem>(model).sid();
        });
        scene.store.clock.advance(1h);
        QCOMPARE(scene.notifications.takeTitles(), QStringList({u"Water"_s, u"Roses"_s}));
        scene.press(u"item:"_s + item, u"complete"_s);
        QVERIFY(scene.store.context().find<KWChecklistItem>(item)->isCompleted());
        scene.press(u"task:"_s + daily, u"complete"_s);
        QCOMPARE(scene.task(daily).startDate, at("2030-05-02 09:00"));
        QCOMPARE(scene.titlesAfter(24h), QStringList({u"Water"_s, u"Roses"_s}));
    }

    // Whoever else writes the store may know nothing of alerts.
    void plansWhatCameFromOutside()
    {
        NotificationScene scene;
        const QString id = scene.addTask("Call", "2030-05-01 09:00");
        setSaved<KWTask>(scene.store, id, &KWTaskModel::remindTime, std::optional<Instant>{});
        scene.store.clock.advance(0ms);
        scene.store.kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        scene.store.clock.advance(0ms);
        QTRY_COMPARE(scene.task(id).remindTime, at("2030-05-01 09:00"));
        QCOMPARE(scene.titlesAfter(1h), QStringList{u"Call"_s});
    }

    void heedsThePreferences()
    {
        NotificationScene scene;
        KWUserDefaults &defaults = scene.store.kit().defaults();
        scene.addTask("Call", "2030-05-01 09:00");
        const QString write = scene.addTask("Write", "2030-05-01 15:30");
        defaults.set(Settings::notificationsEnabled, false);
        QCOMPARE(scene.titlesAfter(2h), QStringList{});
        defaults.set(Settings::notificationsEnabled, true);
        defaults.set(Settings::notificationSound, false);
        ClockFormat::choose(u"12"_s);
        scene.store.clock.advance(6h);
        QCOMPARE(scene.notifications.shown.size(), 1);
        QCOMPARE(scene.notifications.shown.first().body, u"Inbox · 3:30 PM"_s);
        QVERIFY(scene.notifications.shown.first().sound == UserNotification::Sound::None);
    }

    void takesBackWhatIsDoneElsewhere()
    {
        NotificationScene scene;
        const QString call = scene.addTask("Call", "2030-05-01 09:00");
        const QString write = scene.addTask("Write", "2030-05-01 10:00");
        scene.store.clock.advance(1h);
        setSaved<KWTask>(scene.store, call, &KWTaskModel::status, KWTaskStatusCompleted);
        scene.store.clock.advance(0ms);
        QCOMPARE(scene.notifications.withdrawn, QStringList{u"task:"_s + call});
        scene.notifications.takeTitles();

        scene.pendingDeletes << write;
        QCOMPARE(scene.titlesAfter(1h), QStringList{});
        scene.pendingDeletes.clear(); // undone
        scene.store.kit().center().post(delayDeleteStatusChangedNotification);
        QCOMPARE(scene.titlesAfter(0ms), QStringList{u"Write"_s});
        if (const Result<void> out = scene.store.account().signOut(); !out) QFAIL("no sign-out");
        QVERIFY(scene.notifications.withdrawn.contains(u"task:"_s + write));
        QVERIFY(scene.store.clock.isIdle());
    }

    void bringsWhatWasNotAnsweredOnceMoreAfterAQuit()
    {
        NotificationScene scene;
        const QString call = scene.addTask("Call", "2030-05-01 09:00");
        const QString write = scene.addTask("Write", "2030-05-01 09:00");
        scene.addTask("First", "2030-05-01 10:00");
        scene.addTask("Second", "2030-05-01 10:30");
        const auto titlesAfterAQuit = [&scene] {
            scene.notifications.takeTitles();
            scene.handler->applicationWillTerminate();
            scene.closeFor(0ms);
            return scene.notifications.takeTitles();
        };
        scene.store.clock.advance(1h);
        scene.notifications.onClosed(u"task:"_s + write);
        QCOMPARE(titlesAfterAQuit(), QStringList{u"Call"_s});
        QCOMPARE(scene.notifications.withdrawn, QStringList{u"task:"_s + call});
        scene.notifications.onClosed(u"task:"_s + call);
        QCOMPARE(titlesAfterAQuit(), QStringList{});
        scene.store.clock.sleep(3h);
        QCOMPARE(titlesAfterAQuit(), QStringList{u"2 reminders while you were away"_s});
    }

    void saysWhyNothingCameOfWhatWasPressed()
    {
        NotificationScene scene;
        const QString id = scene.addTask("Call", "2030-05-01 09:00");
        scene.store.clock.advance(1h);
        scene.fillTheDisk();
        scene.press(u"task:"_s + id, u"complete"_s);
        QCOMPARE(scene.notifications.takeTitles(), QStringList({u"Call"_s, u"Call"_s}));
        scene.makeRoom();
        scene.press(u"task:"_s + id, u"complete"_s);
        QVERIFY(scene.store.context().find<KWTask>(id)->isCompleted());
    }

    void doesNotRepeatWhatItCouldNotSave()
    {
        NotificationScene scene;
        scene.addTask("Call", "2030-05-01 09:00");
        scene.fillTheDisk();
        QCOMPARE(scene.titlesAfter(1h), QStringList{u"Call"_s});
        QCOMPARE(scene.titlesAfter(5min), QStringList{});
        scene.makeRoom();
        QCOMPARE(scene.titlesAfter(1min), QStringList{});
        QVERIFY(scene.store.clock.isIdle());
    }
};

ORVANE_TEST(KWUserNotificationHandler_test)
#include "KWUserNotificationHandler_test.moc"
