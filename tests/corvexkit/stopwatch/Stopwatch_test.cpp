#include "corvexkit/stopwatch/Stopwatch.h"

#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/MemoryStopwatchStore.h"
#include "support/TestMain.h"

using Corvex::Focus::Stopwatch;
using Corvex::Focus::StopwatchAction;
using Corvex::Focus::StopwatchSegment;
using Corvex::Focus::StopwatchTimeline;
using namespace Qt::StringLiterals;
using namespace std::chrono;

class Stopwatch_test : public QObject {
    Q_OBJECT

    std::optional<ManualClock> m_clock;
    MemoryStopwatchStore m_store;
    std::optional<Stopwatch> m_watch;
    std::vector<int> m_actions;
    StopwatchTimeline m_stopped;
    int m_ticks = 0;

    // Over what an earlier run of the program left, as a crash leaves it.
    void startProgram()
    {
        m_watch.emplace(*m_clock, m_store);
        m_watch->setActionCallback([this](StopwatchAction action, const StopwatchTimeline &timeline) {
            m_actions.push_back(int(action));
            if (isStop(action)) m_stopped = timeline;
        });
        m_watch->setTickCallback([this] { ++m_ticks; });
        m_watch->restore();
    }

    void verifyRan(milliseconds duration) const { QCOMPARE(m_watch->cumulativeRunningDuration(), duration); }
    QString state() const { return nameOf(m_watch->state()); }

private Q_SLOTS:
    void init()
    {
        m_watch.reset();
        m_clock.emplace("2030-05-01 09:00");
        m_store = {};
        m_actions.clear();
        m_stopped = {};
        m_ticks = 0;
        startProgram();
    }

    void timesWithPauses()
    {
        QCOMPARE(state(), u"idle"_s);
        m_watch->start(u"book"_s);
        QCOMPARE(state(), u"running"_s);
        m_clock->advance(10min);
        m_watch->pause();
        QCOMPARE(state(), u"paused"_s);
        m_clock->advance(5min);
        verifyRan(10min);
        m_watch->resume();
        m_clock->advance(20min);
        m_watch->stop();
        QCOMPARE(state(), u"idle"_s);
        verifyRan(0min);
        QCOMPARE(m_actions, (std::vector{0, 1, 2, 3}));
        QCOMPARE(m_stopped.cumulativeRunningDuration(), milliseconds{30min});
        QCOMPARE(m_stopped.pausedDuration(), milliseconds{5min});
        QCOMPARE(m_stopped.startDate(), at("2030-05-01 09:00"));
        QCOMPARE(m_stopped.endDate(), at("2030-05-01 09:35"));
    }

    void doesNothingInTheWrongState()
    {
        m_watch->pause();
        m_watch->resume();
        m_watch->stop();
        m_watch->setObject(u"book"_s);
        QVERIFY(m_actions.empty() && m_store.text.isEmpty());
        m_watch->start({});
        m_watch->start(u"book"_s);
        m_watch->resume();
        m_watch->pause();
        m_watch->pause();
        QCOMPARE(m_actions, (std::vector{0, 1}));
        QCOMPARE(m_watch->object(), QString{});
    }

    void goesOnToAnotherThing()
    {
        m_watch->start(u"book"_s);
        m_clock->advance(10min);
        m_watch->setObject(u"plants"_s);
        m_watch->setObject(u"plants"_s);
        m_clock->advance(10min);
        m_watch->pause();
        m_watch->setObject(u"kitchen"_s);
        m_clock->advance(10min);
        startProgram();
        QCOMPARE(m_watch->object(), u"kitchen"_s);
        m_watch->resume();
        m_clock->advance(10min);
        m_watch->stop();
        QStringList objects;
        for (const StopwatchSegment &each : m_stopped.segments()) {
            QCOMPARE(each.duration(each.startDate), milliseconds{10min});
            objects << each.object;
        }
        QCOMPARE(objects, QStringList({u"book"_s, u"plants"_s, {}, u"kitchen"_s}));
    }

    void ticksOnWholeSecondsWhileRunning()
    {
        m_watch->start({});
        m_clock->advance(3500ms);
        QCOMPARE(m_ticks, 3);
        m_watch->pause();
        QVERIFY(m_clock->isIdle());
        m_clock->advance(10s);
        m_watch->resume();
        m_clock->advance(400ms);
        QCOMPARE(m_ticks, 3);
        m_clock->advance(100ms);
        QCOMPARE(m_ticks, 4);
        m_watch->stop();
        QVERIFY(m_clock->isIdle());
    }

    void maybeStoppedFromATick()
    {
        m_watch->setTickCallback([this] { m_watch->stop(); });
        m_watch->start({});
        m_clock->advance(5s);
        QCOMPARE(m_stopped.cumulativeRunningDuration(), milliseconds{1s});
        QVERIFY(m_clock->isIdle());
    }

    void stopsByItself()
    {
        m_watch->start({});
        m_clock->advance(6h);
        m_watch->pause();
        m_clock->advance(30h);
        m_watch->resume();
        m_clock->advance(6h - 1ms);
        QCOMPARE(state(), u"running"_s);
        m_clock->advance(1ms);
        QCOMPARE(state(), u"idle"_s);
        QCOMPARE(m_actions.back(), 4);
        QCOMPARE(m_stopped.cumulativeRunningDuration(), milliseconds{12h});
        QVERIFY(m_clock->isIdle());
    }

    void takesNoNoticeOfAClockThatIsSet()
    {
        m_watch->start({});
        m_clock->setNow(at("2030-06-01 00:00"));
        m_clock->advance(10min);
        m_clock->setNow(at("2029-01-01 00:00"));
        m_clock->advance(10min);
        verifyRan(20min);
        startProgram();
        verifyRan(20min);
        m_watch->stop();
        QCOMPARE(m_stopped.endDate(), at("2030-05-01 09:20"));
    }

    void goesOnAfterARestart_data()
    {
        QTest::addColumn<milliseconds>("away");
        QTest::addColumn<milliseconds>("ran");
        QTest::newRow("at once") << milliseconds{0min} << milliseconds{10min + 30s};
        QTest::newRow("later") << milliseconds{3h} << milliseconds{3h + 10min + 30s};
        QTest::newRow("with the clock set back meanwhile") << milliseconds{-48h} << milliseconds{10min};
    }
    void goesOnAfterARestart()
    {
        QFETCH(milliseconds, away);
        QFETCH(milliseconds, ran);
        m_watch->start(u"book"_s);
        m_clock->advance(10min + 30s);
        m_watch.reset();
        m_clock->sleep(away);
        startProgram();
        QCOMPARE(state(), u"running"_s);
        QCOMPARE(m_watch->object(), u"book"_s);
        verifyRan(ran);
        m_clock->advance(2min);
        QCOMPARE(m_actions, (std::vector{0}));
        startProgram();
        verifyRan(ran + 2min);
    }

    void stopsAtItsLengthWhenTheComputerWasOff()
    {
        m_watch->start({});
        m_clock->advance(10min);
        m_watch.reset();
        m_clock->sleep(60h);
        startProgram();
        QCOMPARE(state(), u"idle"_s);
        QCOMPARE(m_actions.back(), 4);
        QCOMPARE(m_stopped.endDate(), at("2030-05-01 21:00"));
        QVERIFY(m_clock->isIdle());
    }

    void staysPausedOverARestart()
    {
        m_watch->start({});
        m_clock->advance(10min);
        m_watch->pause();
        m_watch.reset();
        m_clock->sleep(60h);
        startProgram();
        QCOMPARE(state(), u"paused"_s);
        verifyRan(10min);
        m_watch->resume();
        m_clock->advance(1min);
        m_watch->stop();
        QCOMPARE(m_stopped.pausedDuration(), milliseconds{60h});
    }

    // A crash takes the knowledge of a minute at most, and nothing when it restarts.
    void savesOnceAMinute()
    {
        m_watch->start({});
        m_clock->advance(10min);
        QCOMPARE(m_store.saveCount, 11);
        m_watch->pause();
        m_clock->advance(10min);
        QCOMPARE(m_store.saveCount, 12);
    }

    void pausesDuringSleep_data()
    {
        QTest::addColumn<milliseconds>("slept");
        QTest::addColumn<QString>("after");
        QTest::newRow("short") << milliseconds{59min} << u"running"_s;
        QTest::newRow("long") << milliseconds{1h} << u"paused"_s;
        QTest::newRow("a night") << milliseconds{10h} << u"paused"_s;
    }
    void pausesDuringSleep()
    {
        QFETCH(milliseconds, slept);
        QFETCH(QString, after);
        m_watch->start(u"book"_s);
        m_clock->advance(10min);
        m_watch->computerWillSleep();
        m_clock->sleep(slept);
        m_watch->computerDidWake();
        QCOMPARE(state(), after);
        verifyRan(10min);
        m_watch->stop();
        QCOMPARE(m_stopped.pausedDuration(), slept);
        QCOMPARE(m_stopped.endDate(), at("2030-05-01 09:10") + slept);
    }

    void staysAsItWasLeftOverASleep()
    {
        m_watch->computerWillSleep();
        m_watch->computerDidWake();
        m_watch->start({});
        m_clock->advance(1min);
        m_watch->pause();
        m_watch->computerWillSleep();
        m_clock->sleep(1min);
        m_watch->computerDidWake();
        QCOMPARE(state(), u"paused"_s);
        QCOMPARE(m_actions, (std::vector{0, 1}));
        m_watch->resume();
        m_clock->sleep(8h); // that nobody told of
        m_clock->advance(1min);
        startProgram();
        verifyRan(2min);
    }

    // The battery was empty.
    void isPausedWhenTheSleepHadNoEnd()
    {
        m_watch->start({});
        m_clock->advance(10min);
        m_watch->computerWillSleep();
        m_watch.reset();
        m_clock->sleep(9h);
        startProgram();
        QCOMPARE(state(), u"paused"_s);
        verifyRan(10min);
    }

    void keepsWhatIsStoppedUntilItIsSettled()
    {
        for (const auto length : {5min, 7min}) {
            m_watch->start({});
            m_clock->advance(length);
            m_watch->stop();
        }
        m_watch->start({});
        m_clock->advance(1min);
        startProgram();
        verifyRan(1min);
        const auto stopped = m_watch->stoppedTimelines();
        QCOMPARE(stopped.size(), 2u);
        QCOMPARE(stopped.back().cumulativeRunningDuration(), milliseconds{7min});
        m_watch->settle(stopped.back());
        m_watch->settle(stopped.back());
        startProgram();
        QCOMPARE(m_watch->stoppedTimelines().size(), 1u);
        QVERIFY(m_watch->stoppedTimelines().front() == stopped.front());
        m_watch->settle(stopped.front());
        m_watch->stop();
        m_watch->settle(m_stopped);
        QCOMPARE(m_store.text, QString{});
    }

    void putsDamagedTextAside_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("state");
        const QString sound = uR"({"date": "2030-05-01T08:55:00Z", "wallClock": "2030-05-01T08:55:00Z",
            "timeline": {"segments": [{"kind": "running", "start": "2030-05-01T08:50:00Z"}]}})"_s;
        const auto row = [sound](const char *name, const QString &part, const QString &damage) {
            QTest::newRow(name) << QString{sound}.replace(part, damage) << u"idle"_s;
        };
        QTest::newRow("sound") << sound << u"running"_s;
        QTest::newRow("no JSON") << u"pomodoro"_s << u"idle"_s;
        QTest::newRow("half of it") << sound.left(sound.size() / 2) << u"idle"_s;
        QTest::newRow("an empty object") << u"{}"_s << u"idle"_s;
        row("no date", u"\"date\""_s, u"\"day\""_s);
        row("no date of the clock", u"\"wallClock\""_s, u"\"clock\""_s);
        row("no timeline", u"\"segments\""_s, u"\"parts\""_s);
        row("begun after it was last seen", u"08:50"_s, u"08:56"_s);
        row("ended", u"08:50:00Z\""_s, u"08:50:00Z\", \"end\": \"2030-05-01T08:52:00Z\""_s);
        row("stopped and open", u"\"timeline\""_s,
            u"\"stopped\": [{\"segments\": [{\"kind\": \"running\", \"start\": \"2030-05-01T08:00:00Z\"}]}], "
            "\"timeline\""_s);
    }
    void putsDamagedTextAside()
    {
        QFETCH(QString, text);
        QFETCH(QString, state);
        m_store.text = text;
        LogRecorder log;
        startProgram();
        QCOMPARE(nameOf(m_watch->state()), state);
        QCOMPARE(log.lines(u"stopwatch"_s).isEmpty(), state == u"running");
        QCOMPARE(m_store.aside, state == u"running" ? QStringList{} : QStringList{text});
        m_watch->stop();
        m_watch->start({});
        m_clock->advance(1min);
        verifyRan(1min);
    }

    void timesOnWithoutAStore()
    {
        m_store.isBroken = true;
        LogRecorder log;
        startProgram();
        m_watch->start({});
        m_clock->advance(10min);
        m_watch->stop();
        QCOMPARE(m_stopped.cumulativeRunningDuration(), milliseconds{10min});
        QVERIFY(log.lines(u"stopwatch"_s).contains(u"The disk is gone."_s));
    }
};

ORVANE_TEST(Stopwatch_test)
#include "Stopwatch_test.moc"
