#include "support/ManualClock.h"

#include "corvexkit/time/TimeText.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

// The rules of a clock's calls, on the clock that tests set: both clocks share them.
class ManualClock_test : public QObject {
    Q_OBJECT

    // What ran, and when by the wall clock.
    QStringList m_ran;

    std::function<void()> note(const ManualClock &clock, const QString &name)
    {
        return [this, &clock, name] {
            m_ran << name + u' ' + TimeText::fromTimeOfDay(clock.now() - floor<days>(clock.now()));
        };
    }

private Q_SLOTS:
    void init() { m_ran.clear(); }

    void runsCallsInTimeOrder()
    {
        ManualClock clock{"2030-05-01 09:00"};
        const auto late = clock.callAt(at("2030-05-01 09:30"), note(clock, u"late"_s));
        const auto early = clock.callAfter(10min, note(clock, u"early"_s));
        const auto same = clock.callAt(at("2030-05-01 09:10"), note(clock, u"same"_s));
        const auto last = clock.callAt(at("2030-05-01 10:00"), note(clock, u"last"_s));
        const auto past = clock.callAt(at("2030-05-01 08:00"), note(clock, u"past"_s));
        QVERIFY(m_ran.isEmpty());
        clock.advance(59min);
        QCOMPARE(m_ran, QStringList({u"past 09:00"_s, u"early 09:10"_s, u"same 09:10"_s, u"late 09:30"_s}));
        clock.advance(1min);
        QCOMPARE(m_ran.last(), u"last 10:00"_s);
        QVERIFY(clock.isIdle());
    }

    void cancels()
    {
        ManualClock clock{"2030-05-01 09:00"};
        ClockCall kept = clock.callAfter(1s, note(clock, u"kept"_s));
        {
            const auto dropped = clock.callAfter(1s, note(clock, u"dropped"_s));
            QVERIFY(dropped.isPending());
        }
        ClockCall cancelled = clock.callAfter(1s, note(clock, u"cancelled"_s));
        cancelled.cancel();
        QVERIFY(!cancelled.isPending());
        ClockCall replaced = clock.callAfter(1s, note(clock, u"replaced"_s));
        replaced = clock.callAfter(1s, note(clock, u"replacing"_s));
        ClockCall moved = std::move(kept);
        QVERIFY(moved.isPending() && !kept.isPending());
        ClockCall victim; // of another call of the same moment
        const auto canceller = clock.callAfter(1s, [&victim] { victim.cancel(); });
        victim = clock.callAfter(1s, note(clock, u"victim"_s));
        clock.advance(1s);
        QCOMPARE(m_ran, QStringList({u"kept 09:00:01"_s, u"replacing 09:00:01"_s}));
        QVERIFY(!moved.isPending());
    }

    void letsACallDropItsOwnHandle()
    {
        ManualClock clock{"2030-05-01 09:00"};
        auto handle = std::make_unique<ClockCall>();
        const auto held = std::make_shared<int>(7);
        int seen = 0;
        *handle = clock.callAfter(1s, [&handle, &seen, held] {
            handle.reset();
            seen = *held; // what the call holds outlives its handle
        });
        clock.advance(1s);
        QCOMPARE(seen, 7);
        QCOMPARE(held.use_count(), 1);
    }

    // A cancelled call may hold the handle of another one, or of itself.
    void dropsHandlesWithTheCallsThatHoldThem()
    {
        ManualClock clock{"2030-05-01 09:00"};
        const auto inner = std::make_shared<ClockCall>(clock.callAfter(1s, note(clock, u"inner"_s)));
        ClockCall outer = clock.callAfter(2s, [inner] {});
        const auto own = std::make_shared<ClockCall>();
        *own = clock.callAfter(2s, [own] {});
        outer.cancel();
        own->cancel();
        clock.advance(3s);
        QCOMPARE(m_ran, QStringList{u"inner 09:00:01"_s});
        QCOMPARE(inner.use_count(), 1);
        QCOMPARE(own.use_count(), 1);
    }

    void outlivesItsClock()
    {
        auto clock = std::make_unique<ManualClock>("2030-05-01 09:00");
        ClockCall call = clock->callAfter(1s, [] {});
        clock.reset();
        QVERIFY(!call.isPending());
        call.cancel();
    }

    void followsAWallClockThatIsSet()
    {
        ManualClock clock{"2030-05-01 09:00"};
        const auto wall = clock.callAt(at("2030-05-01 10:00"), note(clock, u"wall"_s));
        const auto steady = clock.callAfter(30min, note(clock, u"steady"_s));
        clock.setNow(at("2030-05-01 08:00"));
        clock.advance(1h);
        QCOMPARE(m_ran, QStringList{u"steady 08:30"_s});
        clock.setNow(at("2030-05-02 12:00"));
        QCOMPARE(m_ran.last(), u"wall 12:00"_s);
        QCOMPARE(clock.monotonicNow(), milliseconds{1h});
    }

    void wakesWithEverythingThatCameDue()
    {
        ManualClock clock{"2030-05-01 22:00"};
        const auto second = clock.callAt(at("2030-05-02 01:00"), note(clock, u"second"_s));
        const auto first = clock.callAt(at("2030-05-01 23:00"), note(clock, u"first"_s));
        const auto steady = clock.callAfter(1h, note(clock, u"steady"_s));
        clock.sleep(8h);
        QCOMPARE(m_ran, QStringList({u"first 06:00"_s, u"second 06:00"_s}));
        clock.advance(1h);
        QCOMPARE(m_ran.last(), u"steady 07:00"_s);
    }
};

ORVANE_TEST(ManualClock_test)
#include "ManualClock_test.moc"
