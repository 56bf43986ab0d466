#include "focus/StopwatchTerminator.h"

#include "corvexkit/time/TimeText.h"
#include "focus/FocusTarget.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "support/FailingWrites.h"
#include "support/Files.h"
#include "support/StopwatchProgram.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// What becomes of a timing when the stopwatch is stopped, over a real store and a real file.
class StopwatchTerminator_test : public QObject {
    Q_OBJECT

    std::unique_ptr<FailingWrites> m_writes;
    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<StopwatchProgram> m_program;

    void startProgram()
    {
        m_program.reset();
        m_program = std::make_unique<StopwatchProgram>(*m_store);
    }
    void restartProgram()
    {
        m_program.reset();
        m_store->reopen();
        startProgram();
    }
    void run(milliseconds length, const QString &object = {})
    {
        m_program->stopwatch.start(object);
        m_store->clock.advance(length);
        m_program->stopwatch.stop();
    }
    const std::optional<StopwatchConfirmation> &asked() const { return m_program->window.shown; }
    bool isKept() const { return !bytesOf(m_store->kit().folders().stopwatch()).isEmpty(); }

    // "09:00:00–09:10:00, pause 0" for each.
    QStringList records() const
    {
        QStringList texts;
        for (const KWPomodoro *each : m_store->context().fetch<KWPomodoro>({.orderBy = "startDate"})) {
            const KWPomodoroModel &record = each->model();
            if (record.type != KWFocusTypeStopwatch || record.pomoStatus != KWPomoStatusCompleted ||
                record.userID != m_store->userID())
                texts << u"another kind"_s;
            texts << u"%1–%2, pause %3"_s
                         .arg(TimeText::fromInstant(*record.startDate).mid(11, 8),
                              TimeText::fromInstant(*record.endDate).mid(11, 8))
                         .arg(record.pauseDuration);
        }
        return texts;
    }

private Q_SLOTS:
    void init()
    {
        m_program.reset();
        m_store.reset();
        m_writes = std::make_unique<FailingWrites>();
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00");
        startProgram();
    }
    void cleanup()
    {
        m_program.reset();
        m_store.reset();
        m_writes.reset();
    }

    void asksForLongTimings_data()
    {
        QTest::addColumn<milliseconds>("length");
        QTest::addColumn<bool>("isAccelerated");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("a second too short") << milliseconds{59s} << false << u"dropped"_s;
        QTest::newRow("long enough") << milliseconds{60s} << false << u"saved"_s;
        QTest::newRow("an hour") << milliseconds{3600s} << false << u"saved"_s;
        QTest::newRow("a second more") << milliseconds{3601s} << false << u"asked"_s;
        QTest::newRow("a moment more") << milliseconds{3600s + 1ms} << false << u"asked"_s;
        QTest::newRow("a second below the limit") << milliseconds{12h - 1s} << false << u"asked"_s;
        QTest::newRow("up to the limit") << milliseconds{12h} << false << u"asked as at the limit"_s;
        QTest::newRow("accelerated") << milliseconds{4min} << true << u"saved"_s;
        QTest::newRow("accelerated, a second more") << milliseconds{4min + 1s} << true << u"asked"_s;
    }
    void asksForLongTimings()
    {
        QFETCH(milliseconds, length);
        QFETCH(bool, isAccelerated);
        QFETCH(QString, outcome);
        m_store->kit().defaults().set(Settings::developerAcceleration, isAccelerated);
        run(length);
        QCOMPARE(records().size(), outcome == u"saved" ? 1 : 0);
        QCOMPARE(m_program->confirmation.isConfirming(), outcome.startsWith(u"asked"));
        QCOMPARE(asked().has_value(), outcome.startsWith(u"asked"));
        QCOMPARE(isKept(), outcome.startsWith(u"asked"));
        if (!asked()) return;
        QCOMPARE(asked()->originalDuration, duration<double>{length}.count());
        QCOMPARE(asked()->isAutoStoped, outcome == u"asked as at the limit");
    }

    void creditsEachTaskAndHabitItsOwnSeconds()
    {
        const QString list = m_store->makeList(u"Garden"_s);
        const QString task = aTask("Water the plants").in(list).tagged("green").savedIn(*m_store);
        QString habit;
        saved(*m_store, [&](ObjectContext &context) {
            KWHabitModel model;
            model.userID = m_store->userID();
            model.name = u"Read"_s;
            habit = context.insert<KWHabit>(model).sid();
        });
        auto &stopwatch = m_program->stopwatch;
        stopwatch.start(FocusTarget::task(task).text());
        m_store->clock.advance(10min);
        stopwatch.setObject(FocusTarget::habit(habit).text());
        m_store->clock.advance(5min);
        stopwatch.pause();
        m_store->clock.advance(2min);
        stopwatch.setObject(FocusTarget::task(task).text());
        stopwatch.resume();
        m_store->clock.advance(7min);
        stopwatch.stop();
        QCOMPARE(records(), QStringList{u"09:00:00–09:24:00, pause 120"_s});
        const auto summaries = m_store->context().find<KWTask>(task)->focusSummaries();
        QCOMPARE(summaries.size(), 1);
        QCOMPARE((*summaries.first())->stopwatchDuration, 17 * 60);
        QCOMPARE((*summaries.first())->pomoDuration, 0);
        const KWHabitFocus *day = m_store->context().find<KWHabit>(habit)->focusAtDateStamp(2030'05'01);
        QVERIFY(day);
        QCOMPARE((*day)->duration, 5 * 60);
        const auto slices = m_store->context().fetch<KWFocusSlice>({.orderBy = "startDate"});
        QCOMPARE(slices.size(), 3);
        QCOMPARE((*slices.first())->title, u"Water the plants"_s);
        QCOMPARE((*slices.first())->projectName, u"Garden"_s);
        QCOMPARE((*slices.at(1))->title, u"Read"_s);
        QVERIFY(!isKept());
    }

    void givesMomentsToWhatCameNext()
    {
        const QString slip = aTask("Buy milk").savedIn(*m_store);
        const QString task = aTask("Water the plants").savedIn(*m_store);
        m_program->stopwatch.start(FocusTarget::task(slip).text());
        m_store->clock.advance(10s - 1ms);
        m_program->stopwatch.setObject(FocusTarget::task(task).text());
        m_store->clock.advance(10min);
        m_program->stopwatch.setObject(FocusTarget::task(slip).text());
        m_store->clock.advance(10s);
        m_program->stopwatch.setObject({});
        m_store->clock.advance(1s); // nothing comes next
        m_program->stopwatch.stop();
        const auto secondsOf = [this](const QString &taskID) {
            const auto summaries = m_store->context().find<KWTask>(taskID)->focusSummaries();
            return summaries.isEmpty() ? 0 : (*summaries.first())->stopwatchDuration;
        };
        QCOMPARE(secondsOf(slip), 10);
        QCOMPARE(secondsOf(task), 610);
        QCOMPARE(m_store->context().fetch<KWFocusSlice>({}).size(), 3);
    }

    void savesWhatIsConfirmed_data()
    {
        QTest::addColumn<double>("changed"); // seconds
        QTest::addColumn<QString>("record");
        QTest::newRow("as it was") << 7200.0 << u"09:00:00–11:10:00, pause 600"_s;
        QTest::newRow("behind the pause") << 5400.0 << u"09:00:00–10:40:00, pause 600"_s;
        QTest::newRow("before the pause") << 1800.0 << u"09:00:00–09:30:00, pause 0"_s;
        QTest::newRow("more than it was") << 9000.0 << u"09:00:00–11:10:00, pause 600"_s;
        QTest::newRow("nothing") << 0.0 << QString{};
        QTest::newRow("less than nothing") << -60.0 << QString{};
    }
    void savesWhatIsConfirmed()
    {
        QFETCH(double, changed);
        QFETCH(QString, record);
        QStringList posted;
        const auto observation = m_store->kit().center().addObserver(
            KWStopwatchConfirmManager::didConfirm,
            [&posted](const KWNotification &notification) { posted << notification.name; });
        m_program->stopwatch.start({});
        m_store->clock.advance(1h);
        m_program->stopwatch.pause();
        m_store->clock.advance(10min);
        m_program->stopwatch.resume();
        m_store->clock.advance(1h);
        m_program->stopwatch.stop();
        QCOMPARE(records(), QStringList{});
        asked()->valueChangedHandler(changed);
        asked()->confirmActionHandler();
        QCOMPARE(records(), record.isEmpty() ? QStringList{} : QStringList{record});
        QCOMPARE(asked().has_value(), record.isEmpty());
        QCOMPARE(m_program->confirmation.isConfirming(), record.isEmpty());
        QCOMPARE(posted.size(), record.isEmpty() ? 0 : 1);
        QCOMPARE(isKept(), record.isEmpty());
    }

    void tellsWhatHappens()
    {
        QStringList posted;
        const auto observation =
            m_store->kit().center().addObserver([&posted](const KWNotification &notification) {
                if (notification.name.startsWith(u"KWFocusRunning")) posted << notification.name.mid(14);
            });
        m_program->stopwatch.start({});
        m_store->clock.advance(2s);
        m_program->stopwatch.pause();
        m_store->clock.advance(2s);
        m_program->stopwatch.stop();
        QCOMPARE(posted, QStringList({u"StateChanged"_s, u"CountDownChanged"_s, u"CountDownChanged"_s,
                                      u"StateChanged"_s, u"StateChanged"_s}));
    }

    void pausesWhileTheComputerSleeps()
    {
        m_program->stopwatch.start({});
        m_store->clock.advance(10min);
        m_store->kit().center().post(WorkspaceWillSleepNotification);
        m_store->clock.sleep(9h);
        m_store->kit().center().post(WorkspaceDidWakeNotification);
        m_program->stopwatch.stop();
        QCOMPARE(records(), QStringList{u"09:00:00–18:10:00, pause 32400"_s});
    }

    // A crash or the end of the program while the window is open, or the window closed.
    void asksAgainAtTheNextStart()
    {
        run(2h);
        restartProgram();
        QVERIFY(asked());
        QCOMPARE(asked()->originalDuration, 7200.0);
        asked()->postponedHandler();
        run(5min);
        QCOMPARE(m_program->window.showCount, 1);
        restartProgram();
        QCOMPARE(m_program->window.showCount, 1);
        asked()->confirmActionHandler();
        QCOMPARE(records(), QStringList({u"09:00:00–11:00:00, pause 0"_s, u"11:00:00–11:05:00, pause 0"_s}));
        QVERIFY(!isKept());
        restartProgram();
        QVERIFY(!asked());
    }

    void asksForOneAfterTheOther()
    {
        run(2h);
        run(3h);
        QCOMPARE(m_program->window.showCount, 1);
        QCOMPARE(asked()->originalDuration, 7200.0);
        asked()->confirmActionHandler();
        QCOMPARE(m_program->window.showCount, 2);
        QCOMPARE(asked()->originalDuration, 10800.0);
        asked()->confirmActionHandler();
        QCOMPARE(records().size(), 2);
        QVERIFY(!isKept());
    }

    void keepsWhatCannotBeStored_data()
    {
        QTest::addColumn<milliseconds>("length");
        QTest::addColumn<QString>("record");
        QTest::newRow("saved at once") << milliseconds{30min} << u"09:00:00–09:30:00, pause 0"_s;
        QTest::newRow("confirmed") << milliseconds{2h} << u"09:00:00–10:30:00, pause 0"_s;
    }
    void keepsWhatCannotBeStored()
    {
        QFETCH(milliseconds, length);
        QFETCH(QString, record);
        m_writes->failAt(1);
        run(length);
        if (asked()) {
            asked()->valueChangedHandler(5400.0);
            asked()->confirmActionHandler();
        }
        QVERIFY(m_writes->hasFailed());
        QCOMPARE(records(), QStringList{});
        QCOMPARE(m_program->failures.size(), 1);
        QCOMPARE(m_program->journal.waiting().size(), 1);
        // What was confirmed once is not asked for again.
        restartProgram();
        QVERIFY(!asked() && !isKept());
        QCOMPARE(records(), QStringList{record});
    }

    void keepsATimingThatIsNowhereElse()
    {
        const QString defaults = m_store->kit().folders().config + u"/group.ini"_s;
        QVERIFY(QDir{}.mkpath(defaults)); // in the way of the journal
        m_writes->failAt(1);
        run(30min);
        QVERIFY(isKept());
        QVERIFY(QDir{}.rmdir(defaults));
        restartProgram();
        QCOMPARE(records().size(), 1);
        QVERIFY(!isKept());
    }

    // The program broke off behind the save and before the stopwatch forgot the timing.
    void storesNothingTwice()
    {
        m_program->stopwatch.start({});
        m_store->clock.advance(30min);
        const QString file = m_store->kit().folders().stopwatch();
        QVERIFY(m_store->account().signOut());
        m_program->stopwatch.stop();
        const QByteArray stopped = bytesOf(file);
        QCOMPARE(records(), QStringList{});
        QVERIFY(m_store->account().signInLocally(QLocale::c()));
        m_store->clock.advance(0ms);
        QCOMPARE(records().size(), 1);
        QVERIFY(!isKept());
        write(file, stopped);
        startProgram();
        QCOMPARE(records().size(), 1);
        QVERIFY(!isKept());
    }

    void putsAsideAFileThatCannotBeRead()
    {
        const QString path = m_store->kit().folders().stopwatch();
        for (const QByteArray &damage :
             {QByteArrayLiteral("{\"timeline\":"), QByteArrayLiteral("pomodoro")}) {
            write(path, damage);
            startProgram();
        }
        run(10min);
        QCOMPARE(records().size(), 1);
        QCOMPARE(bytesOf(path + u".unreadable"_s), "{\"timeline\":");
        QCOMPARE(bytesOf(path + u".unreadable-2"_s), "pomodoro");
    }

    void saysWhichFileCannotBeWritten()
    {
        StopwatchFile file{u"/nowhere/stopwatch.json"_s};
        QVERIFY(file.load() && file.load()->isEmpty() && file.clear());
        const Result<void> saved = file.save(u"{}"_s);
        QVERIFY(!saved && saved.error().sentence.contains(u"/nowhere/stopwatch.json"));
    }
};

ORVANE_TEST(StopwatchTerminator_test)
#include "StopwatchTerminator_test.moc"
