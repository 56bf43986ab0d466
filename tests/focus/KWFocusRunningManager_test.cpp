#include "focus/KWFocusRunningManager.h"

#include "focus/PomoFixture.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWHabit.h"
#include "model/records/KWTask.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The coordinator over both engines.
class KWFocusRunningManager_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answersForTheCurrentModeAlone_data();
    void answersForTheCurrentModeAlone();
    void remembersTheMode();
    void startingAPomoStopsTheStopwatch();
    void theCommandOfTheMenu_data();
    void theCommandOfTheMenu();
    void tellsWhenTheTargetIsAnotherOne();
    void forgetsATargetThatIsGone_data();
    void forgetsATargetThatIsGone();
    void signingOutEndsEverything();
    void offersWhatAnEarlierRunLeft_data();
    void offersWhatAnEarlierRunLeft();
    void asksAboutEachPomoThatWasLeft();

private:
    /// The engines of a further run, over the same folder; it ends as in a crash.
    struct Run {
        explicit Run(PomoFixture &itsFocus) : focus(itsFocus) { next.applicationDidFinishLaunching(); }
        void answer(int button) { std::exchange(questions.answer, {})(button); }

        PomoFixture &focus;
        PomoFixture::Questions questions{};
        FocusPorts ports{focus.messages, focus.popover, questions};
        FocusAssociation association{focus.store.kit().center()};
        FocusJournal journal{focus.store.kit().defaults()};
        FocusRecordQueue records{focus.store.kit(), journal};
        KWPomoRunningManager pomo{
            {focus.store.kit(), focus.store.clock, association, focus.coordinator, journal, records, ports}};
        KWFocusRunningManager next{
            {focus.store.kit(), association, pomo, focus.stopwatch, journal, records, ports}};
    };

    static QString answers(const PomoFixture &focus);
};

// Which of the questions are answered with yes.
QString KWFocusRunningManager_test::answers(const PomoFixture &focus)
{
    const KWFocusRunningManager &coordinator = focus.coordinator;
    QStringList yes;
    const auto ask = [&yes](bool answer, const QString &name) {
        if (answer) yes.append(name);
    };
    ask(coordinator.isRunning(), u"running"_s);
    ask(coordinator.isPomoRunning(), u"pomo"_s);
    ask(coordinator.isPomoFocusing(), u"pomo-focusing"_s);
    ask(coordinator.isPomoPaused(), u"pomo-paused"_s);
    ask(coordinator.isStopWatchRunning(), u"stopwatch"_s);
    ask(coordinator.isStopWatchFocusing(), u"stopwatch-focusing"_s);
    ask(coordinator.isFocusing(), u"focusing"_s);
    return yes.join(u' ') + u" %1"_s.arg(coordinator.currentDuration());
}

void KWFocusRunningManager_test::answersForTheCurrentModeAlone_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << u""_s << u" 1500"_s;
    QTest::newRow("a Pomo") << u"start 10s"_s << u"running pomo pomo-focusing focusing 1490"_s;
    QTest::newRow("paused") << u"start 10s pause"_s << u"running pomo pomo-paused 1490"_s;
    QTest::newRow("waiting") << u"start 25m"_s << u"running pomo 300"_s;
    QTest::newRow("a stopwatch") << u"stopwatch 10s"_s
                                 << u"running stopwatch stopwatch-focusing focusing 10"_s;
    QTest::newRow("a paused one") << u"stopwatch 10s stopwatch-pause 5s"_s << u"running stopwatch 10"_s;
    QTest::newRow("a stopwatch over a Pomo")
        << u"start 10s stopwatch 3s"_s << u"running stopwatch stopwatch-focusing focusing 3"_s;
    QTest::newRow("after it") << u"start 10s stopwatch 3s stopwatch-stop"_s << u" 0"_s;
    QTest::newRow("back to the Pomo")
        << u"start 10s stopwatch 3s start"_s << u"running pomo pomo-focusing focusing 1490"_s;
}

void KWFocusRunningManager_test::answersForTheCurrentModeAlone()
{
    QFETCH(QString, steps);
    QFETCH(QString, expected);
    PomoFixture focus;
    focus.does(steps);
    QCOMPARE(answers(focus), expected);
}

void KWFocusRunningManager_test::remembersTheMode()
{
    PomoFixture focus;
    QCOMPARE(focus.coordinator.focusType(), KWFocusTypePomo);
    focus.does(u"stopwatch"_s);
    QCOMPARE(focus.store.kit().defaults().value(Settings::currentFocusType), 1);
    focus.store.kit().defaults().set(Settings::currentFocusType, 7);
    QCOMPARE(focus.coordinator.focusType(), KWFocusTypePomo);
}

void KWFocusRunningManager_test::startingAPomoStopsTheStopwatch()
{
    PomoFixture focus;
    focus.does(u"stopwatch-A 2m start-B"_s);
    QCOMPARE(focus.stopwatch.state(), Corvex::Focus::StopwatchState::idle);
    QCOMPARE(focus.stopwatch.stoppedTimelines().size(), 1U);
    QCOMPARE(focus.popover.page, u"pomo"_s);
    QCOMPARE(focus.coordinator.target().taskID(), focus.idOf(u"B"_s));
}

void KWFocusRunningManager_test::theCommandOfTheMenu_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("starts") << u"command"_s << u"foucsing 1500"_s << false;
    QTest::newRow("gives up soon") << u"command 30s command"_s << u"idle 1500"_s << false;
    QTest::newRow("asks later") << u"command 31s command"_s << u"foucsing 1469"_s << true;
    QTest::newRow("goes on") << u"command 31s pause command"_s << u"foucsing 1469"_s << false;
    QTest::newRow("skips the break") << u"auto-break start 26m command"_s << u"foucsing 1500"_s << false;
    QTest::newRow("leaves the stopwatch alone") << u"stopwatch 1m command"_s << u"idle 1500"_s << false;
    QTest::newRow("switched off") << u"disable command"_s << u"idle 1500"_s << false;
    QTest::newRow("nobody") << u"sign-out command"_s << u"idle 1500"_s << false;
}

void KWFocusRunningManager_test::theCommandOfTheMenu()
{
    QFETCH(QString, steps);
    QFETCH(QString, state);
    QFETCH(bool, isAsked);
    PomoFixture focus;
    focus.does(steps);
    QCOMPARE(focus.state(), state);
    QCOMPARE(focus.questions.asked.has_value(), isAsked);
    if (!isAsked) return;
    QCOMPARE(*focus.questions.asked, (FocusQuestion{.message = u"Abandon Pomo"_s,
                                                    .text = u"Abandon this Pomo?"_s,
                                                    .buttons = {u"Abandon"_s, u"Cancel"_s}}));
    QVERIFY(focus.pomo.isConfirmingToExit());
}

void KWFocusRunningManager_test::tellsWhenTheTargetIsAnotherOne()
{
    PomoFixture focus;
    int told = 0;
    const auto observation =
        focus.store.kit().center().addObserver(KWFocusRunningTaskChanged, [&told](const auto &) { ++told; });
    focus.does(u"target-A target-A start-A"_s);
    QCOMPARE(told, 1);
    focus.does(u"target-B abandon abandon"_s);
    QCOMPARE(told, 3);
}

void KWFocusRunningManager_test::forgetsATargetThatIsGone_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isTrashed");
    QTest::newRow("a task") << u"A"_s << false;
    QTest::newRow("one in the trash") << u"A"_s << true;
    QTest::newRow("an archived habit") << u"H"_s << false;
}

void KWFocusRunningManager_test::forgetsATargetThatIsGone()
{
    QFETCH(QString, target);
    QFETCH(bool, isTrashed);
    PomoFixture focus;
    focus.does(u"stopwatch-%1 1m"_s.arg(target));
    if (target == "H"_L1)
        setSaved<KWHabit>(focus.store, focus.idOf(target), &KWHabitModel::isArchived, true);
    else if (isTrashed)
        setSaved<KWTask>(focus.store, focus.idOf(target), &KWTaskModel::isTrashed, true);
    else
        focus.does(u"delete-A"_s);
    QVERIFY(focus.coordinator.target().isNone());
    QCOMPARE(focus.stopwatch.object(), QString{});
    QVERIFY(focus.coordinator.isStopWatchFocusing());
}

void KWFocusRunningManager_test::signingOutEndsEverything()
{
    PomoFixture focus;
    focus.does(u"stopwatch-A 5m sign-out"_s);
    QCOMPARE(focus.stopwatch.state(), Corvex::Focus::StopwatchState::idle);
    QVERIFY(focus.coordinator.target().isNone());
    QVERIFY(focus.store.clock.isIdle());
}

void KWFocusRunningManager_test::offersWhatAnEarlierRunLeft_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("records");
    QTest::newRow("kept") << u"start-A 10m 30s"_s << u"yes"_s
                          << u"Orvane ended during a Pomo, after 10 minutes of focus."_s
                          << u"09:00-09:10 A=10:00"_s;
    QTest::newRow("dropped") << u"start-A 10m"_s << u"no"_s
                             << u"Orvane ended during a Pomo, after 10 minutes of focus."_s << u"-"_s;
    QTest::newRow("with a pause") << u"start-A 2m pause 3m resume 1m"_s << u"yes"_s
                                  << u"Orvane ended during a Pomo, after 3 minutes of focus."_s
                                  << u"09:00-09:06 A=2:00 A=1:00 pause=3:00"_s;
    QTest::newRow("too short") << u"start-A 59s"_s << u""_s << u""_s << u"-"_s;
    QTest::newRow("over already") << u"start-A 25m"_s << u""_s << u""_s << u"09:00-09:25 A=25:00"_s;
    QTest::newRow("given up") << u"start-A 10m abandon"_s << u""_s << u""_s << u"-"_s;
}

void KWFocusRunningManager_test::offersWhatAnEarlierRunLeft()
{
    QFETCH(QString, steps);
    QFETCH(QString, answer);
    QFETCH(QString, text);
    QFETCH(QString, records);
    PomoFixture focus;
    focus.does(steps);

    Run next{focus};
    QCOMPARE(next.questions.asked.value_or(FocusQuestion{}).text, text);
    if (!answer.isEmpty()) next.answer(answer == "yes"_L1 ? 0 : 1);
    QCOMPARE(focus.records(), records);
    QVERIFY(next.journal.left().isEmpty());
}

// The next Pomo, signing out and another crash come before the answer.
void KWFocusRunningManager_test::asksAboutEachPomoThatWasLeft()
{
    PomoFixture focus;
    const auto start = [&focus](Run &run, const QString &name, std::chrono::minutes length) {
        run.pomo.startFocus(FocusTarget::task(focus.idOf(name)), 0, KWPomoRunningManager::Length::Default);
        focus.store.clock.advance(length);
    };
    {
        Run first{focus};
        start(first, u"A"_s, 10min);
    }
    {
        Run second{focus};
        QVERIFY(second.questions.asked);
        start(second, u"B"_s, 5min);
    }
    Run third{focus};
    const auto asked = [&third] { return third.questions.asked.value_or(FocusQuestion{}).text; };
    QCOMPARE(asked(), u"Orvane ended during a Pomo, after 10 minutes of focus."_s);
    focus.does(u"sign-out"_s);
    QCOMPARE(third.journal.left().size(), 2);
    focus.does(u"sign-in"_s);
    third.answer(0);
    QCOMPARE(focus.records(), u"09:00-09:10 A=10:00"_s);
    QCOMPARE(asked(), u"Orvane ended during a Pomo, after 5 minutes of focus."_s);
    third.answer(1);
    QVERIFY(third.journal.left().isEmpty());
    QVERIFY(!third.questions.answer);
    QCOMPARE(focus.records(), u"09:00-09:10 A=10:00"_s);
}

ORVANE_TEST(KWFocusRunningManager_test)
#include "KWFocusRunningManager_test.moc"
