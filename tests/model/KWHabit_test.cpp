#include "model/records/KWHabit.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWUserSettings.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr int today = 2030'05'01;

Day dayOf(const QString &text) { return TimeText::toDay(text).value(); }

// State, value, and whether it is skipped: "done 1 skipped".
void setDay(KWHabit &habit, int stamp, const QStringList &words)
{
    if (words[0] != u"-") habit.makeCheckInAtDateStamp(stamp).updateValue(words[1].toDouble());
    if (words[0] == u"unachieved") habit.makeCheckInAtDateStamp(stamp).markUnAchieved();
    if (words.last() != u"skipped") return;
    KWHabitSkipModel skip;
    skip.habitID = habit.sid();
    skip.stamp = stamp;
    habit.context().insert<KWHabitSkip>(skip);
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
    const KWHabit &habit(const QString &id) { return *m_store->context().find<KWHabit>(id); }

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

    // Made late in the evening, when it is another day elsewhere already.
    void everySoManyDaysStaysWhereItIsOnAJourney()
    {
        const QString id = make(u"FREQ=DAILY;INTERVAL=3"_s);
        m_store->clock.setZone("Asia/Tokyo");
        QVERIFY(habit(id).isDueOn(dayOf(u"2030-05-04"_s)) && !habit(id).isDueOn(dayOf(u"2030-05-05"_s)));
    }

    void standInTheirManualOrder()
    {
        saved(*m_store, [&](ObjectContext &context) {
            for (const QString &name : {u"c2"_s, u"a1"_s, u"archived 3"_s, u"b1"_s, u"deleted 4"_s}) {
                KWHabitModel habit;
                habit.userID = m_store->userID();
                habit.sid = name;
                habit.sortOrder = name.last(1).toInt();
                habit.isArchived = name.startsWith(u"archived");
                habit.isDeleted = name.startsWith(u"deleted");
                context.insert<KWHabit>(habit);
            }
        });
        for (const auto &[scope, expected] : {std::pair{HabitScope::Active, u"a1, b1, c2"_s},
                                              {HabitScope::Archived, u"archived 3"_s},
                                              {HabitScope::ActiveAndArchived, u"a1, b1, c2, archived 3"_s}}) {
            QStringList names;
            for (const KWHabit *each : KWHabit::fetchAll(m_store->userID(), scope, m_store->context()))
                names << each->sid();
            QCOMPARE(names.join(u", "_s), expected);
        }
        QVERIFY(KWHabit::fetchAll(u"another"_s, HabitScope::Active, m_store->context()).isEmpty());
    }
};

ORVANE_TEST(KWHabit_test)
#include "KWHabit_test.moc"
