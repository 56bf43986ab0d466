#include "app/KWUserNotificationHandler.h"

#include "model/events/NotificationNames.h"
#include "model/records/DayStamp.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWTask.h"
#include "model/settings/ClockFormat.h"
#include "model/store/Connection.h"
#include "model/store/KWHabitUtils.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

/// Reminders on a desktop that notes what it shows, takes back and opens.
struct Scene final : UserNotificationCenterPort {
    StoreFixture store{"2030-05-01 08:00"};
    QHash<QString, QString> identifiers; // of messages, by title
    QStringList noted;
    QStringList pendingDeletes;
    std::unique_ptr<KWUserNotificationHandler> handler;

    Scene() { start(); }
    void start()
    {
        OrvaneKit &kit = store.kit();
        handler = std::make_unique<KWUserNotificationHandler>(KWUserNotificationHandler::Collaborators{
            store.clock, kit.manager(), kit.account(), kit.defaults(), kit.center(), kit.bus(), *this,
            [this](const LaunchRequest &request) {
                const QString link = request.links.value(0, u"the window"_s);
                note(u"opens"_s, QString{link}
                                     .replace(u"orvane://task/"_s, u"task:"_s)
                                     .replace(u"orvane://habit/"_s, u"habit:"_s));
                if (request.activationToken != u"token") qFatal("the token is lost");
            },
            [this](const QString &id) { return pendingDeletes.contains(id); }});
        handler->applicationDidFinishLaunching();
    }
    void startAgainAfter(minutes duration)
    {
        handler.reset();
        store.clock.advance(duration);
        store.reopen();
        start();
    }

    void show(const UserNotification &shown) override
    {
        const QString body = QString{shown.body}.replace(u'\n', u" / "_s);
        noted << (body.isEmpty() ? shown.title : shown.title + u": "_s + body);
        if (shown.sound == UserNotification::Sound::None) noted << u"no sound"_s;
    }
    void withdraw(const QString &identifier) override { note(u"takes back"_s, identifier); }
    void note(const QString &what, const QString &identifier)
    {
        noted << what + u' ' + identifiers.key(identifier, identifier);
    }

    QString idOf(const QString &title) const { return identifiers.value(title).section(u':', 1); }
    KWTaskModel task(const QString &title) { return store.context().find<KWTask>(idOf(title))->model(); }
    void addTask(const QString &title, const QString &time, QStringList alerts)
    {
        if (alerts.isEmpty()) alerts << u"TRIGGER:PT0S"_s;
        const QString id = aTask(qPrintable(title))
                               .startingAt(qPrintable(u"2030-05-01 "_s + time))
                               .with(&KWTaskModel::reminders, alerts)
                               .savedIn(store);
        identifiers.insert(title, u"task:"_s + id);
    }
    void addHabit(const QString &title, const QString &times, const QString &rule)
    {
        KWHabitModel habit;
        habit.userID = store.userID();
        habit.name = title;
        habit.reminders = times.split(u',');
        if (!rule.isEmpty()) habit.repeatRule = rule;
        saved(store, [&](ObjectContext &context) {
            identifiers.insert(title, u"habit:"_s + context.insert<KWHabit>(habit).sid());
        });
    }
    void finish(const QString &habit)
    {
        KWHabitUtils utils{store.kit().manager()};
        if (!utils.finishDay(idOf(habit), DayStamp::fromDay(store.clock.today()))) qFatal("not finished");
    }
    bool isDoneToday(const QString &habit)
    {
        const Day today = store.clock.today();
        const KWHabit *found = store.context().find<KWHabit>(idOf(habit));
        const KWHabitCheckin *checkin = found->checkInAtDateStamp(DayStamp::fromDay(today));
        return checkin && checkin->isDone();
    }
    void fillTheDisk(bool isFull)
    {
        store.context().connection().execute(
            isFull ? "CREATE TRIGGER full BEFORE UPDATE ON tasks BEGIN SELECT RAISE(ABORT, 'disk full'); END"
                   : "DROP TRIGGER full");
    }

    /// One step of a story in tests/data/app/reminders.txt; what came of it.
    QString after(const QString &step)
    {
        const QStringList words = step.split(u' ');
        const QString &verb = words.at(0), title = words.value(1);
        const minutes duration{title.toInt()};
        if (verb == u"task")
            addTask(title, words.at(2), words.mid(3));
        else if (verb == u"habit")
            addHabit(title, words.at(2), words.value(3));
        else if (verb == u"day")
            store.kit().center().post(KWNewHabitDayComesNotification);
        else if (verb == u"finish")
            finish(title);
        else if (verb == u"wait")
            store.clock.advance(duration);
        else if (verb == u"sleep")
            store.clock.sleep(duration);
        else if (verb == u"set")
            store.clock.setNow(at(qPrintable(u"2030-05-01 "_s + title)));
        else if (verb == u"crash")
            startAgainAfter(duration);
        else if (verb == u"quit") {
            handler->applicationWillTerminate();
            startAgainAfter(duration);
        } else if (verb == u"press")
            onResponse({identifiers.value(title, title), words.at(2), u"token"_s});
        else if (verb == u"close")
            onClosed(identifiers.value(title, title));
        else if (verb == u"complete")
            setSaved<KWTask>(store, idOf(title), &KWTaskModel::status, KWTaskStatusCompleted);
        else if (verb == u"disk")
            fillTheDisk(title == u"full");
        else if (verb == u"notifications")
            store.kit().defaults().set(Settings::notificationsEnabled, title == u"on");
        else if (verb == u"sound")
            store.kit().defaults().set(Settings::notificationSound, title == u"on");
        else if (verb == u"hours")
            ClockFormat::choose(title);
        else if (verb == u"look")
            noted << (identifiers.value(title).startsWith(u"habit")
                          ? (isDoneToday(title) ? u"done"_s : u"open"_s)
                      : task(title).status == KWTaskStatusCompleted ? u"completed"_s
                                                                    : u"open"_s);
        else
            qFatal("%s is no step", qUtf8Printable(step));
        store.clock.advance(0ms);
        return noted.isEmpty() ? u"-"_s : std::exchange(noted, {}).join(u"; "_s);
    }
};

} // namespace

class KWUserNotificationHandler_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { ClockFormat::choose({}); }

    void tellsAsTheStoriesSay()
    {
        std::unique_ptr<Scene> scene;
        QString story;
        for (const CaseRow &row : readCases("app/reminders.txt", 3)) {
            if (row.cells.at(0) != story) scene = std::make_unique<Scene>();
            story = row.cells.at(0);
            const QString came = scene->after(row.cells.at(1));
            QVERIFY2(came == row.cells.at(2), row.where + ": " + came.toUtf8());
        }
    }

    void ticksAnItemAndMovesARepeatingTaskOn()
    {
        Scene scene;
        const QString task = aTask("Water")
                                 .startingAt("2030-05-01 09:00")
                                 .with(&KWTaskModel::reminders, {u"TRIGGER:PT0S"_s})
                                 .with(&KWTaskModel::repeatRule, u"FREQ=DAILY"_s)
                                 .withItem("Roses", "2030-05-01 09:00")
                                 .savedIn(scene.store);
        const QString item = scene.store.context().models<KWChecklistItem>({}).constFirst().sid;
        scene.identifiers = {{u"Water"_s, u"task:"_s + task}, {u"Roses"_s, u"item:"_s + item}};
        QCOMPARE(scene.after(u"wait 60"_s), u"Water: Inbox · 09:00; Roses: Water · Inbox · 09:00"_s);
        scene.after(u"press Roses complete"_s);
        QVERIFY(scene.store.context().find<KWChecklistItem>(item)->isCompleted());
        scene.after(u"press Water complete"_s);
        QCOMPARE(scene.task(u"Water"_s).startDate, at("2030-05-02 09:00"));
        QCOMPARE(scene.after(u"wait 1440"_s), u"Water: Inbox · 09:00; Roses: Water · Inbox · 09:00"_s);
    }

    // Whoever else writes the store may know nothing of alerts.
    void plansWhatCameFromOutside()
    {
        Scene scene;
        scene.after(u"task Call 09:00"_s);
        setSaved<KWTask>(scene.store, scene.idOf(u"Call"_s), &KWTaskModel::remindTime,
                         std::optional<Instant>{});
        scene.after(u"wait 0"_s);
        scene.store.kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        scene.after(u"wait 0"_s);
        QTRY_COMPARE(scene.task(u"Call"_s).remindTime, at("2030-05-01 09:00"));
        QCOMPARE(scene.after(u"wait 60"_s), u"Call: Inbox · 09:00"_s);
    }

    void hidesWhatIsAboutToBeDeletedAndEverythingAtSignOut()
    {
        Scene scene;
        scene.after(u"task Write 09:00"_s);
        scene.pendingDeletes << scene.idOf(u"Write"_s);
        QCOMPARE(scene.after(u"wait 60"_s), u"-"_s);
        scene.pendingDeletes.clear(); // undone
        scene.store.kit().center().post(delayDeleteStatusChangedNotification);
        QCOMPARE(scene.after(u"wait 0"_s), u"Write: Inbox · 09:00"_s);
        QVERIFY(scene.store.account().signOut());
        QCOMPARE(scene.noted, QStringList{u"takes back Write"_s});
        QVERIFY(scene.store.clock.isIdle());
    }
};

ORVANE_TEST(KWUserNotificationHandler_test)
#include "KWUserNotificationHandler_test.moc"
