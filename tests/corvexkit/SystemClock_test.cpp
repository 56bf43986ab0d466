#include "corvexkit/time/SystemClock.h"

#include "support/TestMain.h"

#include <QEventLoop>

using namespace Qt::StringLiterals;
using namespace std::chrono;

class SystemClock_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsCallsFromTheLoopInOrder()
    {
        SystemClock clock;
        QStringList ran;
        ClockCall first = clock.callAfter(0ms, [&] { ran << u"cancelled"_s; });
        first.cancel(); // after which the clock must wake for the others
        const auto soon = clock.callAfter(2ms, [&] { ran << u"soon"_s; });
        const auto now = clock.callAfter(0ms, [&] { ran << u"now"_s; });
        const auto past = clock.callAt(clock.now() - 1h, [&] { ran << u"past"_s; });
        const auto far = clock.callAt(Instant::max(), [&] { ran << u"far"_s; });
        const auto ever = clock.callAfter(milliseconds::max(), [&] { ran << u"ever"_s; });
        QVERIFY(ran.isEmpty());
        QTRY_COMPARE(ran.size(), 3);
        QCOMPARE(ran, QStringList({u"past"_s, u"now"_s, u"soon"_s}));
        QVERIFY(far.isPending() && ever.isPending());
    }

    void isNeverEarly()
    {
        SystemClock clock;
        for (int i = 0; i < 5; ++i) {
            QEventLoop loop; // awake the moment a call is due
            bool isEarly = false;
            const Instant due = clock.now() + 2ms;
            const auto wall = clock.callAt(due, [&] { isEarly = clock.now() < due; });
            const auto start = steady_clock::now();
            const auto steady = clock.callAfter(4ms, [&] {
                isEarly = isEarly || steady_clock::now() - start < 4ms;
                loop.quit();
            });
            loop.exec();
            QVERIFY(!wall.isPending() && !isEarly);
        }
    }

    void leavesTurnsToOthers()
    {
        SystemClock clock;
        int calls = 0;
        ClockCall call;
        std::function<void()> again = [&] {
            ++calls;
            call = clock.callAfter(0ms, again);
        };
        again();
        bool otherRan = false;
        QMetaObject::invokeMethod(
            this, [&] { otherRan = true; }, Qt::QueuedConnection);
        QTRY_VERIFY(otherRan && calls > 3);
    }

    void runsInNestedLoops()
    {
        SystemClock clock;
        bool done = false;
        const auto outer = clock.callAfter(0ms, [&] {
            QEventLoop nested;
            const auto inner = clock.callAfter(1ms, [&] { nested.quit(); });
            nested.exec();
            done = true;
        });
        QTRY_VERIFY(done);
    }

    void followsAChangedSystemZone()
    {
        qputenv("TZ", "Europe/Berlin");
        SystemClock clock;
        SystemClock fixed{CXTimeZone::named(u"Asia/Tokyo"_s)};
        QVERIFY(!clock.refreshZone());
        qputenv("TZ", "America/New_York");
        QCOMPARE(clock.zone().identifier(), u"Europe/Berlin"_s);
        QVERIFY(clock.refreshZone() && !fixed.refreshZone());
        QCOMPARE(clock.zone().identifier(), u"America/New_York"_s);
        QCOMPARE(fixed.zone().identifier(), u"Asia/Tokyo"_s);
        qputenv("TZ", "UTC");
    }
};

ORVANE_TEST(SystemClock_test)
#include "SystemClock_test.moc"
