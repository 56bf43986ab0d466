#include "focus/FocusRecordWriter.h"

#include "model/OrvaneKit.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"

#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What a session leaves in the store, and what its tasks and habits get of it.
class FocusRecordWriter_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void storesTheSessionWithItsSlices();
    void creditsEachTargetItsOwnSeconds();
    void aPomoCountsForWhatHadEnoughOfIt_data();
    void aPomoCountsForWhatHadEnoughOfIt();
    void creditsNothingThatIsGone();
    void addsToTheDayOfAHabit();
    void whatIsTakenAwayNeverGoesBelowNone();

private:
    FocusRecord record(const QList<FocusStretch> &stretches, KWFocusType type = KWFocusTypePomo) const;
    FocusStretch stretch(std::chrono::seconds from, std::chrono::seconds to, const FocusTarget &target) const;
    const KWFocusSummary *summaryOf(const QString &taskID);
    QString makeHabit();

    std::unique_ptr<StoreFixture> m_store;
    QString m_task;
    Instant m_start{};
};

void FocusRecordWriter_test::init()
{
    m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
    const QString list = m_store->makeList(u"Client launch"_s);
    m_task = aTask("Write the announcement").in(list).tagged("deep-work").tagged("text").savedIn(*m_store);
    m_start = m_store->clock.now();
}

FocusStretch FocusRecordWriter_test::stretch(std::chrono::seconds from, std::chrono::seconds to,
                                             const FocusTarget &target) const
{
    return {.startDate = m_start + from, .endDate = m_start + to, .target = target};
}

FocusRecord FocusRecordWriter_test::record(const QList<FocusStretch> &stretches, KWFocusType type) const
{
    return {.startDate = m_start,
            .endDate = m_start + 25min,
            .type = type,
            .pauseDuration = std::chrono::round<std::chrono::seconds>(pauseOf(stretches)).count(),
            .stretches = stretches};
}

const KWFocusSummary *FocusRecordWriter_test::summaryOf(const QString &taskID)
{
    const auto summaries = m_store->context().find<KWTask>(taskID)->focusSummaries();
    return summaries.isEmpty() ? nullptr : summaries.first();
}

QString FocusRecordWriter_test::makeHabit()
{
    KWHabitModel habit;
    habit.userID = m_store->userID();
    habit.name = u"Read"_s;
    const QString habitID = m_store->context().insert<KWHabit>(habit).sid();
    if (!m_store->context().save()) qFatal("the habit could not be saved");
    return habitID;
}

void FocusRecordWriter_test::storesTheSessionWithItsSlices()
{
    FocusStretch pause = stretch(10min, 15min, {});
    pause.isPause = true;
    const auto written = FocusRecordWriter{m_store->kit()}.write(
        record({stretch(0min, 10min, FocusTarget::task(m_task)), pause, stretch(15min, 15min, {}),
                stretch(15min, 25min, {})}));
    QVERIFY(written);

    const KWPomodoro *session = m_store->context().find<KWPomodoro>(*written);
    QCOMPARE((*session)->taskID, m_task);
    QCOMPARE((*session)->pauseDuration, 300);
    QCOMPARE((*session)->pomoStatus, KWPomoStatusCompleted);
    QCOMPARE(*(*session)->endDate - *(*session)->startDate, 25min);
    const auto slices = m_store->context().fetch<KWFocusSlice>(
        {.where = "pomodoroID = ?", .values = {*written}, .orderBy = "startDate"});
    QCOMPARE(slices.size(), 2); // neither the pause nor the empty one
    QCOMPARE((*slices[0])->title, u"Write the announcement"_s);
    QCOMPARE((*slices[0])->projectName, u"Client launch"_s);
    QCOMPARE((*slices[0])->stringOfTagNames, u"deep-work, text"_s);
    QVERIFY((*slices[1])->taskID.isEmpty() && (*slices[1])->title.isEmpty());
}

void FocusRecordWriter_test::creditsEachTargetItsOwnSeconds()
{
    const QString other = aTask("Review the budget").savedIn(*m_store);
    const QList<FocusStretch> stretches{
        stretch(0min, 10min, FocusTarget::task(m_task)), stretch(10min, 13min, FocusTarget::task(other)),
        stretch(13min, 20min, FocusTarget::task(m_task)), stretch(20min, 25min, {})};
    QVERIFY(FocusRecordWriter{m_store->kit()}.write(record(stretches)));
    QCOMPARE((*summaryOf(m_task))->pomoDuration, 17 * 60);
    QCOMPARE((*summaryOf(other))->pomoDuration, 3 * 60);

    QVERIFY(FocusRecordWriter{m_store->kit()}.write(record(stretches, KWFocusTypeStopwatch)));
    QCOMPARE((*summaryOf(m_task))->stopwatchDuration, 17 * 60);
    QCOMPARE((*summaryOf(m_task))->pomoDuration, 17 * 60);
    QCOMPARE((*summaryOf(m_task))->pomoCount, 1);
}

void FocusRecordWriter_test::aPomoCountsForWhatHadEnoughOfIt_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<KWPomoStatus>("status");
    QTest::addColumn<bool>("isCompleted");
    QTest::addColumn<QString>("summary"); // Pomos and seconds

    QTest::newRow("a minute") << 60 << KWPomoStatusCompleted << false << u"1 60"_s;
    QTest::newRow("less") << 59 << KWPomoStatusCompleted << false << u"0 59"_s;
    QTest::newRow("nothing") << 0 << KWPomoStatusCompleted << false << u"none"_s;
    QTest::newRow("given up, the task is open") << 600 << KWPomoStatusAbandoned << false << u"none"_s;
    QTest::newRow("given up, the task is done") << 600 << KWPomoStatusAbandoned << true << u"0 600"_s;
}

void FocusRecordWriter_test::aPomoCountsForWhatHadEnoughOfIt()
{
    QFETCH(int, seconds);
    QFETCH(KWPomoStatus, status);
    QFETCH(bool, isCompleted);
    QFETCH(QString, summary);

    if (isCompleted) {
        m_store->context().find<KWTask>(m_task)->updateStatus(KWTaskStatusCompleted);
        QVERIFY(m_store->context().save());
    }
    FocusRecord session = record({stretch(0s, std::chrono::seconds{seconds}, FocusTarget::task(m_task))});
    session.status = status;
    FocusRecordWriter writer{m_store->kit()};
    if (status == KWPomoStatusCompleted)
        QVERIFY(writer.write(session));
    else
        QVERIFY(writer.updateFocusSummary(session));
    const KWFocusSummary *found = summaryOf(m_task);
    QCOMPARE(found ? u"%1 %2"_s.arg((*found)->pomoCount).arg((*found)->pomoDuration) : u"none"_s, summary);
}

void FocusRecordWriter_test::creditsNothingThatIsGone()
{
    m_store->context().find<KWTask>(m_task)->markDelete();
    QVERIFY(m_store->context().save());
    QVERIFY(FocusRecordWriter{m_store->kit()}.write(record(
        {stretch(0min, 5min, FocusTarget::task(m_task)), stretch(5min, 9min, FocusTarget::habit(u"x"_s))})));
    QVERIFY(!summaryOf(m_task));
}

void FocusRecordWriter_test::addsToTheDayOfAHabit()
{
    const QString habitID = makeHabit();
    for (int round = 1; round <= 2; ++round) {
        QVERIFY(FocusRecordWriter{m_store->kit()}.write(
            record({stretch(0min, 5min, FocusTarget::habit(habitID))})));
        const KWHabitFocus *day = m_store->context().find<KWHabit>(habitID)->focusAtDateStamp(2030'05'01);
        QVERIFY(day);
        QCOMPARE((*day)->duration, round * 300);
    }
}

void FocusRecordWriter_test::whatIsTakenAwayNeverGoesBelowNone()
{
    const QString habitID = makeHabit();
    KWTask &task = *m_store->context().find<KWTask>(m_task);
    task.addPomoDuration(100, 0);
    task.addPomoDuration(-300, 0);
    task.addPomoCount(-1, 0);
    m_store->context().find<KWHabit>(habitID)->appendTimeInerval(-5, 2030'05'01);
    QVERIFY(m_store->context().save());
    QCOMPARE((*summaryOf(m_task))->pomoDuration, 0);
    QCOMPARE((*summaryOf(m_task))->pomoCount, 0);
    QVERIFY(!m_store->context().find<KWHabit>(habitID)->focusAtDateStamp(2030'05'01));
}

ORVANE_TEST(FocusRecordWriter_test)
#include "FocusRecordWriter_test.moc"
