#include "focus/KWPomoRunningManager.h"

#include "focus/PomoFixture.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The engine of Pomos over a real store, on a clock that the test sets.
class KWPomoRunningManager_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goesThroughItsStates_data() { addCaseRows("focus/pomo.txt", 5); }
    void goesThroughItsStates()
    {
        QFETCH(const QStringList, cells);
        PomoFixture focus;
        focus.does(cells[0] == "-"_L1 ? QString{} : cells[0]);
        QCOMPARE(focus.state(), cells[1]);
        if (!focus.store.account().isSignedIn()) focus.does(u"sign-in"_s);
        QCOMPARE(focus.records(), cells[2]);
        QCOMPARE(focus.creditOf(u"A"_s), cells[3]);
        QCOMPARE(u"%1 %2"_s.arg(focus.pomo.autoPomodoroCount()).arg(focus.pomo.pomosCountForLongBreak()),
                 cells[4]);
    }

    void tellsOfStatesOnceAndOfEverySecond();
    void saysWhatEndedAndWhatCanBeDone_data();
    void saysWhatEndedAndWhatCanBeDone();
    void saysNothingToWhoLooksAtIt();
    void asksWhetherTheTimeBefore_data();
    void asksWhetherTheTimeBefore();
    void ticksWithoutDrift();
    void isNotWokenWhenNothingRuns();
    void keepsARecordThatCannotBeStored();
    void creditsAHabitItsOwnSeconds();
    void holdsItsRulesWhateverIsDone();
};

void KWPomoRunningManager_test::tellsOfStatesOnceAndOfEverySecond()
{
    PomoFixture focus;
    QStringList told;
    const auto states =
        focus.store.kit().center().addObserver(KWFocusRunningStateChanged, [&](const KWNotification &each) {
            told.append(u"%1>%2"_s.arg(each.userInfo[u"old"_s].toInt()).arg(each.userInfo[u"new"_s].toInt()));
        });
    const auto seconds = focus.store.kit().center().addObserver(
        KWFocusRunningCountDownChanged,
        [&](const KWNotification &each) { told.append(each.object.toString()); });
    focus.does(u"auto-break pomo-5"_s);
    told.clear();
    focus.does(u"start"_s);
    QCOMPARE(told, (QStringList{u"300"_s, u"0>1"_s}));
    told.clear();
    focus.does(u"2s pause pause 9s resume 1s"_s);
    QCOMPARE(told, (QStringList{u"299"_s, u"298"_s, u"1>2"_s, u"2>1"_s, u"297"_s}));
    told.clear();
    focus.does(u"297s"_s);
    QCOMPARE(told.mid(296), (QStringList{u"0"_s, u"1>3"_s, u"300"_s, u"3>4"_s}));
}

void KWPomoRunningManager_test::saysWhatEndedAndWhatCanBeDone_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("a Pomo") << u"start-A 25m"_s << u"You've got a Pomo. Time to relax."_s
                            << QStringList{u"POMO_RELAX"_s, u"Exit"_s};
    QTest::newRow("a Pomo, the break begins")
        << u"auto-break start-A 25m"_s << u"You've got a Pomo. Your break begins now."_s << QStringList{};
    QTest::newRow("a break") << u"auto-break start-A 30m"_s << u"Break ended. Start a new timer?"_s
                             << QStringList{u"POMO_START"_s, u"Exit"_s};
    QTest::newRow("a break, a Pomo begins") << u"auto-break auto-pomo start-A 30m"_s
                                            << u"Break ended. Starting the next Pomo now."_s << QStringList{};
    QTest::newRow("asleep") << u"auto-break start-A 1m sleep-2h"_s << u"Break ended. Start a new timer?"_s
                            << QStringList{u"POMO_START"_s, u"Exit"_s};
}

void KWPomoRunningManager_test::saysWhatEndedAndWhatCanBeDone()
{
    QFETCH(QString, steps);
    QFETCH(QString, title);
    QFETCH(QStringList, keys);
    PomoFixture focus;
    focus.does(steps);
    QVERIFY(focus.messages.shown);
    QCOMPARE(focus.messages.shown->title, title);
    QCOMPARE(focus.messages.shown->subtitle, u"A"_s);
    QStringList offered;
    for (const FocusMessage::Action &each : focus.messages.shown->actions)
        offered.append(each.key);
    QCOMPARE(offered, keys);
    focus.does(u"start"_s);
    QVERIFY(!focus.messages.shown);
}

void KWPomoRunningManager_test::saysNothingToWhoLooksAtIt()
{
    PomoFixture focus;
    focus.does(u"start-A"_s);
    focus.popover.isShown = true;
    focus.does(u"25m"_s);
    QVERIFY(!focus.messages.shown);
}

void KWPomoRunningManager_test::asksWhetherTheTimeBefore_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("shown");
    QTest::newRow("20 letters") << u"Write the new letter"_s << u"Write the new letter"_s;
    QTest::newRow("21 letters") << u"Write the new letters"_s << u"Write the new letter..."_s;
    QTest::newRow("one that is several units")
        << u"Write the new cards👩‍🔧!"_s << u"Write the new cards👩‍🔧..."_s;
}

void KWPomoRunningManager_test::asksWhetherTheTimeBefore()
{
    QFETCH(QString, title);
    QFETCH(QString, shown);
    PomoFixture focus;
    focus.store.context().find<KWTask>(focus.idOf(u"A"_s))->set(&KWTaskModel::title, title);
    QVERIFY(focus.store.context().save());
    focus.does(u"start 10m target-A"_s);
    QVERIFY(focus.questions.askedInWindow);
    QCOMPARE(focus.questions.askedInWindow->message,
             u"Does the previous focus time belong to %1?"_s.arg(shown));
    focus.does(u"15m"_s);
    QVERIFY(!focus.questions.askedInWindow);
}

void KWPomoRunningManager_test::ticksWithoutDrift()
{
    PomoFixture focus;
    focus.does(u"start-A"_s);
    for (int each = 0; each < 10; ++each) {
        focus.store.clock.advance(350ms);
        focus.does(u"pause"_s);
        focus.store.clock.advance(777ms);
        focus.does(u"resume"_s);
    }
    QCOMPARE(focus.pomo.currentCountDown(), 1500 - 3);
    focus.store.clock.advance(500ms);
    QCOMPARE(focus.pomo.currentCountDown(), 1500 - 4);
}

void KWPomoRunningManager_test::isNotWokenWhenNothingRuns()
{
    PomoFixture focus;
    QVERIFY(focus.store.clock.isIdle());
    focus.does(u"start-A 1m pause"_s);
    QVERIFY(focus.store.clock.isIdle());
    focus.does(u"resume 24m"_s);
    QVERIFY(focus.store.clock.isIdle());
}

void KWPomoRunningManager_test::keepsARecordThatCannotBeStored()
{
    PomoFixture focus;
    QStringList told;
    focus.recordQueue.onFailure = [&told](const QString &sentence) { told << sentence; };
    focus.does(u"start-A"_s);
    // Somebody else writes for as long as the store waits for them.
    const auto wait = [&](ObjectContext &context) -> Result<void> {
        if (!context.beginWriting()) qFatal("no lock");
        focus.does(u"25m"_s);
        return {};
    };
    QVERIFY(KWCoreDataService{focus.store.kit().manager()}.sync_perform(wait));
    QCOMPARE(focus.state(), u"waitingToRelax 300"_s);
    QCOMPARE(focus.records(), u"-"_s);
    QCOMPARE(told.size(), 1);
    QVERIFY(
        told.first().startsWith(u"The focus time could not be saved; this is tried again each minute."_s));
    focus.store.kit().center().post(KWNewMinuteComesNotification);
    QCOMPARE(told.size(), 1);
    QCOMPARE(focus.records(), u"09:00-09:25 A=25:00"_s);
    QCOMPARE(focus.creditOf(u"A"_s), u"1 25:00"_s);
}

void KWPomoRunningManager_test::creditsAHabitItsOwnSeconds()
{
    PomoFixture focus;
    focus.does(u"start-H 10m target-A 15m"_s);
    QCOMPARE(focus.creditOf(u"H"_s), u"10:00"_s);
    QCOMPARE(focus.creditOf(u"A"_s), u"1 15:00"_s);
}

// Whatever a person, the computer and the settings do, in any order.
void KWPomoRunningManager_test::holdsItsRulesWhateverIsDone()
{
    const QStringList steps{u"start"_s,
                            u"start-A"_s,
                            u"start-B"_s,
                            u"start-H"_s,
                            u"pause"_s,
                            u"resume"_s,
                            u"command"_s,
                            u"stop"_s,
                            u"abandon"_s,
                            u"relax"_s,
                            u"target-A"_s,
                            u"target-none"_s,
                            u"auto-pomo"_s,
                            u"auto-break"_s,
                            u"cycle-2"_s,
                            u"cycle-10"_s,
                            u"interval-1"_s,
                            u"interval-3"_s,
                            u"pomo-5"_s,
                            u"pomo-25"_s,
                            u"short-1"_s,
                            u"long-20"_s,
                            u"1s"_s,
                            u"9s"_s,
                            u"31s"_s,
                            u"4m"_s,
                            u"sleep-1s"_s,
                            u"sleep-7m"_s,
                            u"sleep-9h"_s,
                            u"clock-3h"_s,
                            u"clock--3h"_s,
                            u"stopwatch"_s,
                            u"stopwatch-stop"_s,
                            u"press-Exit"_s,
                            u"press-POMO_RELAX"_s,
                            u"press-POMO_START"_s,
                            u"disable"_s,
                            u"enable"_s,
                            u"enable"_s,
                            u"sign-out"_s,
                            u"sign-in"_s,
                            u"sign-in"_s,
                            u"delete-B"_s,
                            u"restore-B"_s};
    std::mt19937 random{20300501};
    PomoFixture focus;
    const auto sum = [&focus](const char *sql) { return focus.store.context().number(sql); };
    constexpr const char *credited = "SELECT ifnull(sum(pomoDuration), 0) FROM focusSummaries";
    constexpr const char *creditedHabits = "SELECT ifnull(sum(duration), 0) FROM habitFocus";
    constexpr const char *pomos = "SELECT count(*) FROM pomodoros WHERE type = 0";
    std::chrono::milliseconds elapsed{0};
    QStringList history;

    for (int sequence = 0; sequence < 10'000; ++sequence) {
        const int length = 1 + int(random() % 3);
        for (int each = 0; each < length; ++each) {
            const QString step = steps[qsizetype(random() % std::size_t(steps.size()))];
            const std::int64_t pomosBefore = sum(pomos);
            history << step + u"("_s + focus.state() + u")"_s;
            const Instant before = focus.store.clock.now();
            focus.does(step);
            if (!step.startsWith("clock"_L1)) elapsed += focus.store.clock.now() - before;
            if (focus.questions.answer && random() % 2) {
                const auto answer = std::exchange(focus.questions.answer, {});
                answer(int(random() % 2));
            }
            if (focus.questions.askedInWindow && random() % 2)
                focus.questions.answerInWindow(int(random() % 2));
            if (step.startsWith("sleep"_L1))
                QVERIFY2(sum(pomos) - pomosBefore <= 5,
                         qPrintable(history.mid(history.size() - 25).join(u' ') + focus.state()));

            const QList<FocusSlice> &slices = focus.pomo.focusSlices();
            for (qsizetype place = 0; place < slices.size(); ++place) {
                const bool isLast = place + 1 == slices.size();
                QVERIFY2(slices[place].endDate.has_value() || isLast, qPrintable(step));
                if (!isLast) QCOMPARE(*slices[place].endDate, slices[place + 1].startDate);
            }
            if (!slices.isEmpty()) QCOMPARE(slices.first().startDate, focus.pomo.pomoStartDate());
            const bool isUnderWay =
                focus.pomo.isFocusing() || focus.pomo.state() == KWPomoRunningState::paused;
            QCOMPARE(isUnderWay && slices.isEmpty(), false);
            QVERIFY(focus.pomo.currentCountDown() >= 0);
            QVERIFY(focus.pomo.currentCountDown() <= focus.pomo.countDownDuration());
        }
        if (sequence % 100 != 0) continue;
        const std::chrono::seconds spent{sum(credited) + sum(creditedHabits)};
        QVERIFY2(spent <= elapsed + 1s * sum(pomos), "more was credited than went by");
    }
}

ORVANE_TEST(KWPomoRunningManager_test)
#include "KWPomoRunningManager_test.moc"
