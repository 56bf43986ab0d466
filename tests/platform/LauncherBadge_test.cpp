#include "platform/LauncherBadge.h"

#include "model/records/KWHabit.h"
#include "model/records/KWHabitSkip.h"
#include "model/store/KWHabitUtils.h"
#include "model/store/KWTaskFinder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class LauncherBadge_test : public QObject {
    Q_OBJECT

    QStringList m_numbers;

public Q_SLOTS:
    // What a dock hears.
    void update(const QString &application, const QVariantMap &properties)
    {
        QCOMPARE(application, u"application://org.orvane.Orvane.desktop"_s);
        const QVariant count = properties.value(u"count"_s);
        QCOMPARE(count.metaType(), QMetaType::fromType<qlonglong>());
        m_numbers << (properties.value(u"count-visible"_s).toBool() ? count.toString() : u"none"_s);
    }

private Q_SLOTS:
    void showsWhatThePreferenceSelectsUntilSignOut()
    {
        auto dock = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"dock"_s);
        QVERIFY(dock.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, this,
                             SLOT(update(QString, QVariantMap))));
        StoreFixture store{"2030-05-01 08:00"};
        OrvaneKit &kit = store.kit();
        LauncherBadge badge{kit.manager(), kit.account(), kit.defaults()};
        aTask("Yesterday").dueOn("2030-04-30").savedIn(store);
        aTask("Today").dueOn("2030-05-01").savedIn(store);
        aTask("Some day").savedIn(store);
        int shown = 0;
        const auto refresh = [&] { badge.refreshBadge([&shown] { ++shown; }); };

        QStringList expected;
        for (const auto &[type, number] : {std::pair{KWBadgeType::OverdueAndToday, "2"},
                                           {KWBadgeType::None, "none"},
                                           {KWBadgeType::All, "3"}}) {
            kit.defaults().set(Settings::badgeTypeShownInDock, int(type));
            refresh();
            refresh(); // while the first one counts
            expected << QString::fromLatin1(number);
            QTRY_COMPARE(m_numbers, expected);
            QTRY_COMPARE(shown, 2 * expected.size());
        }

        // Habits of today count until they are done; those of other days, skipped and archived ones do not.
        QString open;
        saved(store, [&](ObjectContext &context) {
            KWHabitModel habit;
            habit.userID = store.userID();
            open = context.insert<KWHabit>(habit).sid();
            KWHabitSkipModel skip;
            skip.habitID = context.insert<KWHabit>(habit).sid();
            skip.stamp = 2030'05'01;
            context.insert<KWHabitSkip>(skip);
            habit.repeatRule = u"FREQ=DAILY;BYDAY=TH"_s; // the day is a Wednesday
            context.insert<KWHabit>(habit);
            habit.repeatRule.clear();
            habit.isArchived = true;
            context.insert<KWHabit>(habit);
        });
        refresh();
        expected << u"4"_s;
        QTRY_COMPARE(m_numbers, expected);
        QVERIFY(KWHabitUtils{kit.manager()}.updateHabitCheckin(open, 2030'05'01, HabitCheck::Add,
                                                               CheckedBy::Person));
        refresh();
        expected << u"3"_s;
        QTRY_COMPARE(m_numbers, expected);
        QTRY_COMPARE(shown, 8);

        aTask("Some other day").savedIn(store);
        refresh();
        badge.clearBadge(); // the count under way comes too late
        QTRY_COMPARE(shown, 9);
        if (!kit.account().signOut()) QFAIL("no sign-out");
        refresh();
        QTRY_COMPARE(shown, 10);
        expected << u"none"_s;
        QTRY_COMPARE(m_numbers, expected);
    }
};

ORVANE_TEST(LauncherBadge_test)
#include "LauncherBadge_test.moc"
