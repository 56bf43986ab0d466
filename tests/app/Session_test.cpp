#include "app/Session.h"

#include "app/NotedPorts.h"
#include "app/StartupSequence.h"
#include "model/events/NotificationNames.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

struct SessionScene : NotedPorts {
    ManualClock clock{"2030-05-01 09:00:30"};
    KWNotificationCenter center;
    KWEventBus bus;
    Session session{clock, center, bus, ports};

    void start() { StartupSequence{ports, session}.handleFinishLaunching({}); }
    QStringList callsAfter(const QString &notification)
    {
        calls.clear();
        center.post(notification);
        return take();
    }
};

/// The order of a start that leads into the sequence `session`.
QStringList startInto(const QString &session)
{
    QStringList order = orderOf(u"start"_s);
    const qsizetype place = order.indexOf(u"session"_s);
    return order.mid(0, place) + orderOf(session) + order.mid(place + 1);
}

const QStringList badge{u"dock.refreshBadge"_s, u"statusBarItem.refresh"_s};
const QStringList theme{u"theme.autoSwitchDarkIfNeeded"_s};

} // namespace

/// Rooms rely on the order in which they are called.
class Session_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsSignedInThenSignsOutAndInAgain()
    {
        SessionScene scene;
        scene.signIn();
        scene.start();
        QCOMPARE(scene.take(), startInto(u"sign-in"_s));
        QCOMPARE(scene.callsAfter(KWFocusRunningCountDownChanged), QStringList{u"statusBarItem.refresh"_s});
        QCOMPARE(scene.callsAfter(KWUserDidSignOutNotification), orderOf(u"sign-out"_s));
        QCOMPARE(scene.callsAfter(KWFocusRunningCountDownChanged), QStringList{});
        QVERIFY(scene.clock.isIdle());
        QCOMPARE(scene.callsAfter(KWUserDidSignInNotification), orderOf(u"sign-in"_s));
        scene.clock.advance(30s);
        QCOMPARE(scene.take(), badge);
    }

    void startsSignedOut()
    {
        SessionScene scene;
        scene.start();
        QCOMPARE(scene.calls, startInto(u"welcome"_s));
        QCOMPARE(scene.callsAfter(KWUserDidSignInNotification), QStringList{}); // nobody
        // Signed out, the theme follows the time of day too.
        QCOMPARE(scene.callsAfter(WorkspaceDidWakeNotification), theme);
    }

    void refreshesWhatShowsNumbers()
    {
        SessionScene scene;
        scene.signIn();
        scene.start();
        const QStringList menu{u"mainMenu.refresh"_s};
        for (const auto &[notification, calls] :
             {std::pair{KWSyncDidBatchPullNotification, badge + menu},
              {KWDataDidChangeOutsideMainAppNotification, badge + menu},
              {KWListDisplayConfigurationDidChangeNotification, badge + menu},
              {KWSyncDidPullHabitSettingsNotification, badge},
              {KWHabitSettingsChangedNotification, badge},
              {WorkspaceDidWakeNotification, badge + theme},
              {SystemTimeZoneDidChangeNotification, badge},
              {KWSyncDidBatchPushNotification, QStringList{}}})
            QCOMPARE(scene.callsAfter(notification), calls);
        for (const auto &[kind, calls] : {std::pair{RecordKind::Task, badge},
                                          {RecordKind::ChecklistItem, badge},
                                          {RecordKind::Project, badge},
                                          {RecordKind::Habit, badge},
                                          {RecordKind::HabitCheckin, badge},
                                          {RecordKind::HabitSkip, badge},
                                          {RecordKind::Tag, QStringList{}}}) {
            StoreChange change;
            change.of(kind).updated << u"id"_s;
            scene.bus.post(change);
            QCOMPARE(scene.take(), calls);
        }
    }
};

ORVANE_TEST(Session_test)
#include "Session_test.moc"
