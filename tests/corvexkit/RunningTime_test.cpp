#include "corvexkit/time/RunningTime.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace std::chrono;

class RunningTime_test : public QObject {
    Q_OBJECT

    std::optional<ManualClock> m_clock;
    std::optional<RunningTime> m_time;

private Q_SLOTS:
    void init()
    {
        m_clock.emplace("2030-05-01 09:00");
        m_time.emplace(*m_clock);
    }

    void takesNoPartWhenTheClockIsSet()
    {
        m_clock->advance(10min);
        m_clock->setNow(at("2030-05-03 00:00"));
        m_clock->advance(5min);
        m_clock->setNow(at("2029-01-01 00:00"));
        m_clock->advance(5min);
        QCOMPARE(m_time->now(), at("2030-05-01 09:20"));
        m_time->start();
        m_clock->advance(1min);
        QCOMPARE(m_time->now(), at("2029-01-01 00:06"));
    }

    // The minutes awake on either side of the sleep, while its end was not yet told, count once.
    void addsTheTimeSlept()
    {
        m_clock->advance(10min);
        m_time->willSleep();
        m_clock->advance(1min);
        m_time->willSleep();
        m_clock->sleep(8h);
        m_clock->advance(1min);
        m_time->didWake();
        m_time->didWake();
        QCOMPARE(m_time->now(), at("2030-05-01 17:12"));
        m_clock->sleep(1h); // that nobody told of
        QCOMPARE(m_time->now(), at("2030-05-01 17:12"));
    }

    void neverGoesBack()
    {
        m_time->willSleep();
        m_clock->setNow(at("2030-04-30 09:00"));
        m_time->didWake();
        QCOMPARE(m_time->now(), at("2030-05-01 09:00"));
    }

    void countsOnlySleepAfterItsStart()
    {
        m_time->willSleep();
        m_clock->sleep(2h);
        m_time->start();
        m_clock->sleep(1h);
        m_time->didWake();
        QCOMPARE(m_time->now(), at("2030-05-01 12:00"));
    }
};

ORVANE_TEST(RunningTime_test)
#include "RunningTime_test.moc"
