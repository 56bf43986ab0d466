#include "support/ManualClock.h"

#include "corvexkit/time/TimeText.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

// The rules of a clock's calls, on the clock that tests set: both clocks share them.
class ManualClock_test : public QObject {
    Q_OBJECT

    std::optional<ManualClock> m_clock;
    // What ran, and when by the wall clock.
    QStringList m_ran;

    std::function<void()> note(const QString &name)
    {
        return [this, name] {
            m_ran << name + u' ' + TimeText::fromTimeOfDay(m_clock->now() - floor<days>(m_clock->now()));
        };
    }

private Q_SLOTS:
    void init()
    {
        m_clock.emplace("2030-05-01 09:00");
        m_ran.clear();
    }

    void runsCallsInTimeOrder()
    {
        const auto late = m_clock->callAt(at("2030-05-01 09:30"), note(u"late"_s));
        const auto early = m_clock->callAfter(10min, note(u"early"_s));
        const auto same = m_clock->callAt(at("2030-05-01 09:10"), note(u"same"_s));
        const auto last = m_clock->callAt(at("2030-05-01 10:00"), note(u"last"_s));
        const auto past = m_clock->callAt(at("2030-05-01 08:00"), note(u"past"_s));
        QVERIFY(m_ran.isEmpty());
        m_clock->advance(59min);
        QCOMPARE(m_ran, QStringList({u"past 09:00"_s, u"early 09:10"_s, u"same 09:10"_s, u"late 09:30"_s}));
        m_clock->advance(1min);
        QCOMPARE(m_ran.last(), u"last 10:00"_s);
        QVERIFY(m_clock->isIdle());
    }

    void cancels()
    {
        ClockCall kept = m_clock->callAfter(1s, note(u"kept"_s));
        QVERIFY(m_clock->callAfter(1s, note(u"dropped"_s)).isPending());
        ClockCall cancelled = m_clock->callAfter(1s, note(u"cancelled"_s));
        cancelled.cancel();
        QVERIFY(!cancelled.isPending());
        ClockCall replaced = m_clock->callAfter(1s, note(u"replaced"_s));
        replaced = m_clock->callAfter(1s, note(u"replacing"_s));
        ClockCall moved = std::move(kept);
        QVERIFY(moved.isPending() && !kept.isPending());
        ClockCall victim; // of another call of the same moment
        const auto canceller = m_clock->callAfter(1s, [&victim] { victim.cancel(); });
        victim = m_clock->callAfter(1s, note(u"victim"_s));
        const auto later = m_clock->callAfter(2s, note(u"later"_s));
        m_clock->advance(1s);
        QCOMPARE(m_ran, QStringList({u"kept 09:00:01"_s, u"replacing 09:00:01"_s}));
        QVERIFY(!moved.isPending());
        m_clock.reset(); // which calls may outlive
        QVERIFY(!later.isPending());
    }

    // The call itself, another call, and a cancelled one.
    void dropsHandlesWithTheCallsThatHoldThem()
    {
        const auto running = std::make_shared<ClockCall>();
        *running = m_clock->callAfter(1s, [this, running] {
            running->cancel();
            note(u"running"_s)(); // what a call holds outlives its handle
        });
        const auto inner = std::make_shared<ClockCall>(m_clock->callAfter(1s, note(u"inner"_s)));
        ClockCall outer = m_clock->callAfter(2s, [inner] {});
        const auto own = std::make_shared<ClockCall>();
        *own = m_clock->callAfter(2s, [own] {});
        outer.cancel();
        own->cancel();
        m_clock->advance(3s);
        QCOMPARE(m_ran, QStringList({u"running 09:00:01"_s, u"inner 09:00:01"_s}));
        for (const auto &handle : {running, inner, own})
            QCOMPARE(handle.use_count(), 2); // here and in the list
    }

    // Set by somebody, or after a sleep.
    void followsAWallClockThatIsSet()
    {
        const auto second = m_clock->callAt(at("2030-05-01 11:00"), note(u"second"_s));
        const auto first = m_clock->callAt(at("2030-05-01 10:00"), note(u"first"_s));
        const auto steady = m_clock->callAfter(90min, note(u"steady"_s));
        m_clock->setNow(at("2030-05-01 08:00"));
        m_clock->advance(1h);
        QCOMPARE(m_ran, QStringList{});
        m_clock->sleep(8h);
        QCOMPARE(m_ran, QStringList({u"first 17:00"_s, u"second 17:00"_s}));
        m_clock->advance(1h);
        QCOMPARE(m_ran.last(), u"steady 17:30"_s);
        QCOMPARE(m_clock->monotonicNow(), milliseconds{2h});
    }
};

ORVANE_TEST(ManualClock_test)
#include "ManualClock_test.moc"
