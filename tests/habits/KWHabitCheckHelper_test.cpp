#include "habits/KWHabitCheckHelper.h"

#include "habits/HabitFixture.h"
#include "habits/KWHabitViewModel.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSkip.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <limits>

using namespace Qt::StringLiterals;

class KWHabitCheckHelper_test : public QObject {
    Q_OBJECT

    std::unique_ptr<HabitFixture> m_fixture;
    static constexpr int today = HabitFixture::today;

    KWHabitCheckHelper &checks() { return m_fixture->checks; }

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<HabitFixture>(); }

    void anAmountMakesADayDoneAndUndone()
    {
        const QString id = m_fixture->makeAmount(8, 1);
        QList<bool> told;
        const auto completion = [&told](bool isStored) { told << isStored; };
        QVERIFY(checks().setValue(id, today, 5, completion));
        QCOMPARE(m_fixture->told(id), u"open 5/8"_s);
        QVERIFY(checks().setValue(id, today, 8, completion));
        QCOMPARE(m_fixture->told(id), u"done 8/8"_s);
        QCOMPARE(m_fixture->habit(id).checkInAtDateStamp(today)->model().checkinTime,
                 m_fixture->store.clock.now());
        QCOMPARE(m_fixture->habit(id)->currentStreak, 1);
        QVERIFY(checks().setValue(id, today, 7, completion));
        QCOMPARE(m_fixture->told(id), u"open 7/8"_s);
        QVERIFY(!m_fixture->habit(id).checkInAtDateStamp(today)->model().checkinTime);
        QCOMPARE(m_fixture->habit(id)->currentStreak, 0);
        QVERIFY(!checks().setValue(id, today, -1, completion));
        QCOMPARE(told, (QList<bool>{true, true, true, false}));
    }

    void refusesWhatIsNoAmount()
    {
        const QString id = m_fixture->makeAmount(8, 1);
        QVERIFY(checks().setValue(id, today, 5));
        const double infinity = std::numeric_limits<double>::infinity();
        for (const double wrong : {-0.1, 1e9 + 1, infinity, std::numeric_limits<double>::quiet_NaN()})
            QVERIFY(isRefused(checks().setValue(id, today, wrong)));
        QVERIFY(isRefused(checks().setValue(id, today + 1, 5), u"still to come"));
        QVERIFY(isRefused(checks().markUnAchieved(id, 2026'13'32), u"no day"));
        QVERIFY(isRefused(checks().skip(u"none"_s, today), u"no such habit"));
        QCOMPARE(m_fixture->told(id), u"open 5/8"_s);
    }

    void aDayKeepsTheGoalItHad()
    {
        const QString id = m_fixture->makeAmount(8, 1);
        QVERIFY(checks().setValue(id, today, 5));
        QVERIFY(m_fixture->editor.update(id, [](KWHabitModel &habit) { habit.goal = 4; }));
        QCOMPARE(m_fixture->told(id), u"open 5/8"_s);
        QCOMPARE(m_fixture->told(id, 2030'04'28), u"open 0/4"_s);
        QVERIFY(checks().setValue(id, today, 6));
        QCOMPARE(m_fixture->told(id), u"open 6/8"_s);
    }

    void marksSkipsAndNotesADay()
    {
        const QString id = m_fixture->makeAmount(8, 1);
        QVERIFY(checks().setValue(id, today, 8));
        QVERIFY(checks().markUnAchieved(id, today));
        QCOMPARE(m_fixture->told(id), u"unachieved 8/8"_s);
        QVERIFY(checks().skip(id, today) && checks().skip(id, today));
        QCOMPARE(m_fixture->told(id), u"skipped 8/8"_s);
        QCOMPARE(m_fixture->habit(id).skips().size(), 1);
        QVERIFY(checks().unskip(id, today));
        QCOMPARE(m_fixture->told(id), u"unachieved 8/8"_s);
        QVERIFY(checks().skip(id, today));
        QVERIFY(checks().setValue(id, today, 3));
        QCOMPARE(m_fixture->told(id), u"open 3/8"_s);

        QVERIFY(checks().setNote(id, today, u" With lemon "_s));
        const auto note = [&] { return m_fixture->habit(id).recordAtDateStamp(today); };
        QCOMPARE(note()->model().content, u"With lemon"_s);
        const auto removed = checks().setNote(id, today, {});
        QVERIFY(removed && !note() && !m_fixture->day(id).hasNote);
        QVERIFY(removed->undo(m_fixture->store.kit().manager()) && m_fixture->day(id).hasNote);
    }

    // Those from elsewhere: below the goal they keep the status they came with.
    void takesDaysFromElsewhere()
    {
        const QString id = m_fixture->makeAmount(8, 1);
        for (const auto &[value, status, expected] :
             {std::tuple{9.0, KWHabitCheckinStatusNotDone, u"done 9/8"_s},
              {3.0, KWHabitCheckinStatusNotDone, u"open 3/8"_s},
              {3.0, KWHabitCheckinStatusUnAchieved, u"unachieved 3/8"_s}}) {
            saved(m_fixture->store, [&](ObjectContext &context) {
                KWHabitCheckinModel checkin;
                checkin.checkinStamp = 2030'04'30;
                checkin.goal = 8;
                checkin.value = value;
                checkin.status = status;
                KWHabitCheckHelper::createOrUpdate(context, *context.find<KWHabit>(id), checkin);
            });
            QCOMPARE(m_fixture->told(id, 2030'04'30), expected);
            QCOMPARE(m_fixture->habit(id)->currentStreak, int(expected.startsWith(u"done")));
        }
        QCOMPARE(m_fixture->habit(id).checkInAtDateStamp(2030'04'30)->model().userID,
                 m_fixture->store.userID());
    }

    void leavesAnArchivedHabitAlone()
    {
        const QString id = m_fixture->make();
        QVERIFY(m_fixture->editor.setArchived(id, true));
        QVERIFY(checks().setValue(id, today, 1) && checks().skip(id, today));
        QCOMPARE(m_fixture->told(id), u"open 0/1"_s);
        int opened = 0;
        checks().setCheckInPopup([&](const QString &, int, const QRect &) { ++opened; });
        KWHabitViewModel view{m_fixture->store.kit(), checks()};
        QVERIFY(view.clickDay(id, today, {}) && view.clickDay(u"none"_s, today, {}));
        QCOMPARE(opened, 0);
    }

    void aClickOpensThePopupOrTakesTheMarkBack()
    {
        QStringList opened;
        checks().setCheckInPopup(
            [&](const QString &, int stamp, const QRect &) { opened << QString::number(stamp); });
        KWHabitViewModel view{m_fixture->store.kit(), checks()};
        struct Case {
            QString habit;
            double value;
            QString after; // "-" without a check-in
        };
        const QString yesNo = m_fixture->make(), amount = m_fixture->makeAmount(8, 1),
                      another = m_fixture->makeAmount(8, 1), reached = m_fixture->makeAmount(8, 1),
                      byTwo = m_fixture->makeAmount(8, 2);
        for (const auto &[id, value, after] :
             {Case{yesNo, 1, u"-"_s}, Case{amount, 0, u"-"_s}, Case{another, 5, u"open 5/8"_s},
              Case{reached, 9, u"done 9/8"_s}, Case{byTwo, 5, u"-"_s}}) {
            QVERIFY(checks().setValue(id, today, value) && checks().markUnAchieved(id, today));
            QVERIFY(view.clickDay(id, today, {}));
            QCOMPARE(m_fixture->habit(id).checkInAtDateStamp(today) ? m_fixture->told(id) : u"-"_s, after);
        }
        QVERIFY(opened.isEmpty());
        QVERIFY(view.clickDay(yesNo, today, {}) && view.clickDay(yesNo, 2030'04'20, {}));
        QVERIFY(isRefused(view.clickDay(yesNo, today + 1, {}), u"still to come"));
        QCOMPARE(opened, (QStringList{u"20300501"_s, u"20300420"_s}));
    }
};

ORVANE_TEST(KWHabitCheckHelper_test)
#include "KWHabitCheckHelper_test.moc"
