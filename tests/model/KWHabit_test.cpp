#include "model/records/KWHabit.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/DayStamp.h"
#include "model/records/HabitStreaks.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"
#include "model/store/KWHabitUtils.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr int today = 2030'05'01;

Day dayOf(const QString &text) { return TimeText::toDay(text).value(); }

// As habit-checks.txt writes a day.
void setDay(KWHabit &habit, int stamp, const QStringList &words)
{
    if (words[0] != u"-") habit.makeCheckInAtDateStamp(stamp).updateValue(words[1].toDouble());
    if (words[0] == u"unachieved") habit.makeCheckInAtDateStamp(stamp).markUnAchieved();
    if (words[0] == u"deleted") habit.makeCheckInAtDateStamp(stamp).markDelete();
    if (words.last() != u"skipped") return;
    KWHabitSkipModel skip;
    skip.habitID = habit.sid();
    skip.stamp = stamp;
    habit.context().insert<KWHabitSkip>(skip);
}

// Does or undoes one of the things that a day can be.
void flip(std::vector<Day> &sorted, Day day)
{
    const auto place = std::ranges::lower_bound(sorted, day);
    if (place != sorted.end() && *place == day)
        sorted.erase(place);
    else
        sorted.insert(place, day);
}

HabitHistory daysSince(Day since, HabitHistory all)
{
    all.since = since;
    std::erase_if(all.done, [since](Day each) { return each < since; });
    std::erase_if(all.skipped, [since](Day each) { return each < since; });
    return all;
}

} // namespace

class KWHabit_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    /// A step makes it one with an amount.
    QString make(const QString &rule = u"FREQ=DAILY"_s, double goal = 1, double step = 0)
    {
        KWHabitModel habit;
        habit.userID = m_store->userID();
        habit.repeatRule = rule;
        habit.isRealType = step > 0;
        habit.goal = goal;
        habit.step = step;
        saved(*m_store, [&](ObjectContext &context) { habit.sid = context.insert<KWHabit>(habit).sid(); });
        return habit.sid;
    }
    Result<UndoToken> check(const QString &id, HabitCheck check = HabitCheck::Add, int stamp = today,
                            CheckedBy by = CheckedBy::Person)
    {
        return KWHabitUtils{m_store->kit().manager()}.updateHabitCheckin(id, stamp, check, by);
    }
    const KWHabit &habit(const QString &id) { return *m_store->context().find<KWHabit>(id); }
    QString day(const QString &id)
    {
        const KWHabitCheckin *found = habit(id).checkInAtDateStamp(today);
        const QString skipped = habit(id).skips().isEmpty() ? u""_s : u" skipped"_s;
        if (!found) return u"-"_s + skipped;
        const QString state = found->isMarkUnAchieved() ? u"unachieved"_s : u"open"_s;
        return u"%1 %2"_s.arg(found->isDone() ? u"done"_s : state).arg((*found)->value) + skipped;
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 23:30", "Europe/Berlin"); }

    void readsStampsOfRealDaysOnly()
    {
        for (const int stamp : {1'01'01, 2028'02'29, 9999'12'31})
            QCOMPARE(DayStamp::fromDay(DayStamp::toDay(stamp).value()), stamp);
        for (const int stamp : {-2030'05'01, 12'31, 2026'13'32, 2026'02'29, 2030'05'00, 10000'01'01})
            QVERIFY2(!DayStamp::toDay(stamp), qPrintable(QString::number(stamp)));
        QCOMPARE(DayStamp::stampFromDate(at("2030-04-30 23:30"), m_store->clock.zone()), today);
    }

    void isDueAsTheRuleSays_data() { addCaseRows("model/habit-frequency.txt", 3); }
    void isDueAsTheRuleSays()
    {
        QFETCH(const QStringList, cells);
        const HabitFrequency frequency = HabitFrequency::ofRule(cells[0]);
        QString due;
        for (Day day = dayOf(u"2030-04-29"_s); due.size() < cells[2].size(); day += days{1})
            due += frequency.isDueOn(day, dayOf(cells[1])) ? u'x' : u'.';
        QCOMPARE(due, cells[2]);
    }

    // What stands in a row of a view may be another one as soon as the save is announced.
    void tellsOfTheHabitWhateverBecomesOfTheIdGiven()
    {
        QString id = make();
        const QString habit = id;
        QStringList told;
        const auto registration = m_store->kit().bus().registerEventBus([&](const StoreChange &change) {
            id = u"another row"_s;
            told << change.of(RecordKind::Habit).updated;
        });
        QVERIFY(KWHabitUtils{m_store->kit().manager()}.changeDay(
            id, today, [](KWHabit &changed) { changed.makeCheckInAtDateStamp(today).updateValue(0.5); }));
        QCOMPARE(told, QStringList{habit});
    }

    // Unsaved, and again in a context that reads them from the store. Tomorrow and another habit are there
    // to be left out.
    void countsStreaks_data() { addCaseRows("model/habit-streaks.txt", 5); }
    void countsStreaks()
    {
        QFETCH(const QStringList, cells);
        const Day last = dayOf(cells[0]), first = last - days{cells[3].size() - 1};
        m_store->clock.setNow(m_store->clock.zone().startOfDay(first));
        const QString id = make(cells[2]), other = make();
        m_store->clock.setNow(m_store->clock.zone().startOfDay(last));
        setSaved<KWUserSettings>(*m_store, m_store->userID(), &KWUserSettingsModel::firstWeekday,
                                 cells[1].toInt());
        const QHash<QChar, const char *> words{
            {u'x', "done 1"}, {u'!', "unachieved 0"}, {u's', "- skipped"}, {u'S', "done 1 skipped"}};
        for (const QString &days : {cells[3] + u'x', QString{}})
            saved(*m_store, [&](ObjectContext &context) {
                KWHabit &habit = *context.find<KWHabit>(id);
                for (int i = 0; i < days.size(); ++i) {
                    const int stamp = DayStamp::fromDay(first + std::chrono::days{i});
                    setDay(habit, stamp, QString::fromLatin1(words.value(days[i], "-")).split(u' '));
                    setDay(*context.find<KWHabit>(other), stamp, {u"done"_s, u"1"_s});
                }
                habit.set(&KWHabitModel::longestStreak, -1);
                habit.updateStreaks();
                QCOMPARE(u"%1 %2"_s.arg(habit->currentStreak).arg(habit->longestStreak), cells[4]);
            });
    }

    // However little is known of the days before; how often it is enough is counted.
    void countsStreaksFromTheDaysAroundAChange()
    {
        QRandomGenerator random{7};
        int told = 0, rounds = 0;
        for (const QString &rule : {u"FREQ=DAILY"_s, u"FREQ=DAILY;BYDAY=MO,WE,FR"_s,
                                    u"FREQ=DAILY;INTERVAL=3"_s, u"FREQ=WEEKLY;X-TIMES=4"_s}) {
            const HabitFrequency frequency = HabitFrequency::ofRule(rule);
            HabitHistory history{.today = dayOf(u"2030-05-01"_s), .firstDay = dayOf(u"2030-01-03"_s)};
            history.since = history.firstDay;
            for (Day day = history.firstDay; day <= history.today; day += days{1})
                if (random.bounded(10) < 8) history.done.push_back(day);
            for (int i = 0; i < 400; ++i, ++rounds) {
                const HabitStreaks before = HabitStreaks::of(history, frequency);
                const int daysAgo = random.bounded(int((history.today - history.firstDay).count()) + 1);
                const Day changed = history.today - days{daysAgo};
                flip(random.bounded(4) == 0 ? history.skipped : history.done, changed);
                const HabitHistory part = daysSince(changed - days{random.bounded(40)}, history);
                const auto after = before.afterChangeOf(changed, part, frequency);
                told += after.has_value();
                if (after) QCOMPARE(*after, HabitStreaks::of(history, frequency));
            }
        }
        QVERIFY2(told > rounds / 2 && told < rounds, qPrintable(u"%1 of %2"_s.arg(told).arg(rounds)));
    }

    // Read from a store in which only the days of the last weeks are asked for at first.
    void aCheckAfterALongBreakKeepsTheLongestStreak()
    {
        const QString id = make();
        m_store->clock.advance(days{100});
        for (int stamp : {2030'05'01, 2030'05'02, 2030'05'03, 2030'08'08})
            QVERIFY(check(id, HabitCheck::Add, stamp));
        QCOMPARE(habit(id)->longestStreak, 3);
        QCOMPARE(habit(id)->currentStreak, 1);
        QVERIFY(check(id, HabitCheck::TakeBack, 2030'05'02));
        QCOMPARE(habit(id)->longestStreak, 1);
    }

    void beginsWithTheFirstDayThatIsCheckedIn()
    {
        for (const auto &[rule, first] :
             {std::pair{u"FREQ=DAILY"_s, 2030'04'28}, {u"FREQ=DAILY;INTERVAL=5"_s, 2030'04'26}}) {
            const QString id = make(rule);
            QVERIFY(!habit(id).isDueOn(dayOf(u"2030-04-30"_s)));
            QVERIFY(check(id, HabitCheck::Add, 2030'04'28));
            QCOMPARE(habit(id)->startStamp, first);
            QVERIFY(habit(id).isDueOn(dayOf(u"2030-05-01"_s)));
        }
    }

    void belongsToADay_data() { addCaseRows("model/habit-days.txt", 4); }
    void belongsToADay()
    {
        QFETCH(const QStringList, cells);
        const QByteArray zone = cells[0].toLatin1(), time = cells[1].toLatin1();
        m_store->clock.setZone(*CXTimeZone::named(cells[0]));
        setSaved<KWUserSettings>(*m_store, m_store->userID(), &KWUserSettingsModel::habitDayStart,
                                 cells[2].toInt());
        QCOMPARE(KWUserSettings::habitDayOfUser(m_store->userID(), at(time, zone), m_store->context()),
                 dayOf(cells[3]));
    }

    // It is one o'clock in the night of the 2nd of May.
    void theDayMayBeginLater()
    {
        const QString id = make();
        m_store->clock.setNow(at("2030-05-01 23:00"));
        QCOMPARE(KWHabit::countOpenToday(m_store->userID(), m_store->context()), 1);
        QVERIFY(check(id, HabitCheck::Add, today + 1));
        QVERIFY(check(id, HabitCheck::TakeBack, today + 1));
        setSaved<KWUserSettings>(*m_store, m_store->userID(), &KWUserSettingsModel::habitDayStart, 2);
        QCOMPARE(check(id, HabitCheck::Add, today + 1).error().sentence, u"This day is still to come."_s);
        QVERIFY(check(id));
        QCOMPARE(habit(id)->currentStreak, 1);
        QCOMPARE(KWHabit::countOpenToday(m_store->userID(), m_store->context()), 0);
        m_store->clock.advance(1h);
        QCOMPARE(KWHabit::countOpenToday(m_store->userID(), m_store->context()), 1);
    }

    void takesBackWhatWasDoneToADay()
    {
        const QString id = make({}, 8, 5);
        const UndoToken first = *check(id), second = *check(id);
        QCOMPARE(day(id), u"done 10"_s);
        QVERIFY(second.undo(m_store->kit().manager()));
        QCOMPARE(day(id), u"open 5"_s);
        QCOMPARE(habit(id)->currentStreak, 0);
        QVERIFY(check(id));
        QVERIFY(!first.undo(m_store->kit().manager()));
        QCOMPARE(day(id), u"done 10"_s);
        QCOMPARE(habit(id)->currentStreak, 1);
    }

    // Made late in the evening, when it is another day elsewhere already.
    void everySoManyDaysStaysWhereItIsOnAJourney()
    {
        const QString id = make(u"FREQ=DAILY;INTERVAL=3"_s);
        m_store->clock.setZone("Asia/Tokyo");
        QVERIFY(habit(id).isDueOn(dayOf(u"2030-05-04"_s)) && !habit(id).isDueOn(dayOf(u"2030-05-05"_s)));
    }

    void changesADay_data() { addCaseRows("model/habit-checks.txt", 5); }
    void changesADay()
    {
        QFETCH(const QStringList, cells);
        const auto who = cells[1] == u"person" ? CheckedBy::Person : CheckedBy::Program;
        const auto what = cells[2] == u"add" ? HabitCheck::Add : HabitCheck::TakeBack;
        for (const auto &[id, after] : {std::pair{make(), cells[3]}, {make({}, 8, 5), cells[4]}}) {
            saved(*m_store, [&](ObjectContext &context) {
                setDay(*context.find<KWHabit>(id), today, cells[0].split(u' '));
            });
            QVERIFY(check(id, what, today, who));
            QCOMPARE(day(id), after);
            if (cells[0] != after) QCOMPARE(habit(id)->currentStreak, int(after.startsWith(u"done")));
        }
    }

    void anAmountReachesItsGoalAndLosesItAgain()
    {
        const QString id = make({}, 1, 0.1);
        int told = 0;
        const auto listening = m_store->kit().bus().registerEventBus(
            [&](const StoreChange &change) { told += int(change.of(RecordKind::Habit).updated.count(id)); });
        for (int i = 1; i <= 10; ++i) {
            QCOMPARE(day(id), i == 1 ? u"-"_s : u"open 0.%1"_s.arg(i - 1));
            m_store->clock.advance(1min);
            QVERIFY(check(id));
        }
        QCOMPARE(habit(id).checkInAtDateStamp(today)->model().checkinTime, m_store->clock.now());
        QCOMPARE(told, 10);
        setSaved<KWHabit>(*m_store, id, &KWHabitModel::goal, 0.5);
        QVERIFY(check(id, HabitCheck::TakeBack));
        QCOMPARE(day(id), u"open 0.9"_s);
        QVERIFY(!habit(id).checkInAtDateStamp(today)->model().checkinTime);
    }

    void saysWhyADayCannotBeChecked()
    {
        const QString id = make();
        QCOMPARE(check(id, HabitCheck::Add, 2026'13'32).error().sentence, u"20261332 is no day."_s);
        QCOMPARE(check(id, HabitCheck::Add, today + 1).error().sentence, u"This day is still to come."_s);
        setSaved<KWHabit>(*m_store, id, &KWHabitModel::isArchived, true);
        QVERIFY(check(id));
        saved(*m_store, [&](ObjectContext &context) { context.find<KWHabit>(id)->markDelete(); });
        QCOMPARE(check(id).error().sentence, u"There is no such habit any more."_s);
        QCOMPARE(day(id), u"-"_s);
    }

    void standInTheirManualOrder()
    {
        saved(*m_store, [&](ObjectContext &context) {
            for (const QString &name : {u"c2"_s, u"a1"_s, u"archived3"_s, u"b1"_s, u"deleted4"_s}) {
                KWHabitModel habit;
                habit.userID = m_store->userID();
                habit.sid = name;
                habit.sortOrder = name.last(1).toInt();
                habit.isArchived = name.startsWith(u"archived");
                habit.isDeleted = name.startsWith(u"deleted");
                context.insert<KWHabit>(habit);
            }
        });
        for (const auto &[scope, expected] : {std::pair{HabitScope::Active, u"a1 b1 c2"_s},
                                              {HabitScope::Archived, u"archived3"_s},
                                              {HabitScope::ActiveAndArchived, u"a1 b1 c2 archived3"_s}})
            QCOMPARE(joined(KWHabit::fetchAll(m_store->userID(), scope, m_store->context()), &KWHabit::sid),
                     expected);
        QVERIFY(KWHabit::fetchAll(u"another"_s, HabitScope::Active, m_store->context()).isEmpty());
    }
};

ORVANE_TEST(KWHabit_test)
#include "KWHabit_test.moc"
