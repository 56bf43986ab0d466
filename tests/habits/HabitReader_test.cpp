#include "habits/HabitReader.h"

#include "corvexkit/time/TimeText.h"
#include "habits/HabitDayWatch.h"
#include "habits/HabitFixture.h"
#include "habits/HabitPageLoader.h"
#include "model/account/AccountSettings.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/store/HabitDays.h"
#include "support/Answers.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

Day dayOf(const QString &text) { return TimeText::toDay(text).value(); }

QString namesOf(const QList<HabitRow> &rows)
{
    return joined(rows, [](const HabitRow &each) { return each.habit.name; });
}

KWHabitModel named(const QString &name, const QString &rule = u"FREQ=DAILY"_s)
{
    KWHabitModel habit;
    habit.name = name;
    habit.repeatRule = rule;
    return habit;
}

} // namespace

class HabitReader_test : public QObject {
    Q_OBJECT

    std::unique_ptr<HabitFixture> m_fixture;
    static constexpr int today = HabitFixture::today;

    ObjectContext &context() { return m_fixture->store.context(); }
    HabitPageContent page() { return HabitReader::readPage(m_fixture->store.userID(), context()); }
    QString wantedOn(Day day)
    {
        auto habits = KWHabit::fetchAll(m_fixture->store.userID(), HabitScope::Active, context());
        habits.removeIf([day](const KWHabit *each) { return !each->isWantedOn(day); });
        return joined(habits, [](const KWHabit *each) { return (*each)->name; });
    }
    // "01 Read, 02 Read done": what stands on the calendar from the 29th of April to the 3rd of May.
    QString onCalendar()
    {
        QStringList told;
        for (const DatedThing &each : readHabitThings(dayOf(u"2030-04-29"_s), dayOf(u"2030-05-04"_s),
                                                      m_fixture->store.userID(), context())) {
            const Day day = m_fixture->store.clock.zone().dayOf(each.startDate);
            told << TimeText::fromDay(day).last(2) + u' ' + each.title + (each.isClosed ? u" done"_s : u""_s);
        }
        return told.join(u", "_s);
    }

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<HabitFixture>(); }

    void readsRowsBySectionWithTheirWeek()
    {
        QVERIFY(m_fixture->editor.makeDefaultSections() && m_fixture->editor.makeDefaultSections());
        QCOMPARE(joined(page().sections, &HabitSection::name), u"Morning Afternoon Night Others"_s);
        KWHabitModel stretch = named(u"Stretch"_s), gone = named(u"Gone"_s), old = named(u"Old"_s);
        stretch.sectionID = page().sections[0].sectionID;
        gone.sectionID = u"no section"_s;
        const QString id = m_fixture->make(stretch);
        m_fixture->make(gone);
        QVERIFY(m_fixture->editor.setArchived(m_fixture->make(old), true));
        QVERIFY(m_fixture->checks.setValue(id, 2030'04'25, 1) && m_fixture->checks.skip(id, 2030'04'28) &&
                m_fixture->checks.setNote(id, 2030'04'27, u"In the garden"_s));

        const HabitPageContent read = page();
        QCOMPARE(read.today, dayOf(u"2030-05-01"_s));
        QCOMPARE(namesOf(read.sections[0].rows), u"Stretch"_s);
        QCOMPARE(namesOf(read.sections[3].rows), u"Gone"_s);
        QCOMPARE(namesOf(read.archived), u"Old"_s);
        QVERIFY(read.rowOf(id) && !read.rowOf(u"none"_s));
        const HabitRow &row = read.sections[0].rows[0];
        QCOMPARE(row.week[0].day, dayOf(u"2030-04-25"_s));
        QCOMPARE(joined(row.week, [](const HabitDay &each) { return QString::number(int(each.state)); }),
                 u"1 0 0 3 0 0 0"_s);
        QVERIFY(row.week[2].hasNote && row.isOpenToday());
    }

    // April has thirty days, the first of May is a Wednesday.
    void countsTheFiguresOfAMonth()
    {
        const QString id = m_fixture->make(named(u"Run"_s, u"FREQ=DAILY;BYDAY=MO,WE,FR"_s));
        for (const int stamp : {2030'04'01, 2030'04'03, 2030'04'05, 2030'04'06, today})
            QVERIFY(m_fixture->checks.setValue(id, stamp, 1));
        QVERIFY(m_fixture->checks.skip(id, 2030'04'08));
        const auto april = HabitReader::readDetail(id, dayOf(u"2030-04-17"_s), context());
        QCOMPARE(april->month, dayOf(u"2030-04-01"_s));
        QCOMPARE(april->monthDays().size(), 30);
        QCOMPARE(april->ofMonth.done, 4);
        QCOMPARE(april->ofMonth.due, 12);
        QCOMPARE(april->ofMonth.rate(), 25);
        QCOMPARE(april->year.size(), 365);
        QCOMPARE(april->ofYear.done, 5);
        const QList<HabitDay> days = april->monthDays();
        QVERIFY(days.at(5).day == dayOf(u"2030-04-06"_s) && days.at(5).state == HabitDayState::Done);
        QVERIFY(days.at(9).isMissed(april->today) && !days.at(7).isMissed(april->today));
        const auto before = HabitReader::readDetail(id, dayOf(u"2029-12-31"_s), context());
        QVERIFY(before->ofToday.day == april->today && before->ofToday.state == HabitDayState::Done);
        const auto may = HabitReader::readDetail(id, dayOf(u"2030-05-31"_s), context());
        QCOMPARE(may->ofMonth.rate(), 100);
        QVERIFY(!HabitReader::readDetail(id, dayOf(u"2030-02-01"_s), context())->ofMonth.rate());
        QVERIFY(!HabitReader::readDetail(u"none"_s, april->today, context()));
    }

    // Four weeks of April, in one of them a day too few, and one that May cuts.
    void aWeekAsksForSomeOfItsDays()
    {
        const QString id = m_fixture->make(named(u"Write"_s, u"FREQ=WEEKLY;X-TIMES=2"_s));
        for (const int stamp :
             {2030'04'02, 2030'04'04, 2030'04'09, 2030'04'11, 2030'04'16, 2030'04'23, 2030'04'24, 2030'04'25})
            QVERIFY(m_fixture->checks.setValue(id, stamp, 1));
        const auto april = HabitReader::readDetail(id, dayOf(u"2030-04-17"_s), context());
        QCOMPARE(april->ofMonth.done, 8);
        QCOMPARE(april->ofMonth.due, 8);
        QCOMPARE(april->ofMonth.doneOfDue, 7);
        for (const HabitDay &each : april->monthDays())
            QVERIFY(!each.isMissed(april->today));
    }

    void readsWhatIsWantedOfADay()
    {
        m_fixture->make(named(u"Daily"_s));
        const QString weekly = m_fixture->make(named(u"Weekly"_s, u"FREQ=WEEKLY;X-TIMES=2"_s));
        m_fixture->make(named(u"Thursdays"_s, u"FREQ=DAILY;BYDAY=TH"_s));
        const QString skipped = m_fixture->make(named(u"Skipped"_s));
        QVERIFY(m_fixture->checks.skip(skipped, today));
        QCOMPARE(wantedOn(dayOf(u"2030-05-01"_s)), u"Daily Weekly"_s);
        QVERIFY(m_fixture->checks.setValue(weekly, 2030'04'29, 1) &&
                m_fixture->checks.setValue(weekly, today, 1));
        QCOMPARE(wantedOn(dayOf(u"2030-05-01"_s)), u"Daily Weekly"_s);
        QCOMPARE(wantedOn(dayOf(u"2030-05-02"_s)), u"Daily Thursdays Skipped"_s);
        QCOMPARE(wantedOn(dayOf(u"2030-03-31"_s)), QString{});
    }

    void standsOnTheCalendarWhereItIsDueOrDone()
    {
        const QString daily = m_fixture->make(named(u"Daily"_s, u"FREQ=DAILY;INTERVAL=2"_s));
        QVERIFY(m_fixture->checks.setValue(daily, 2030'04'29, 1) &&
                m_fixture->checks.skip(daily, 2030'05'01));
        QCOMPARE(onCalendar(), u"29 Daily done, 03 Daily"_s);
        QVERIFY(m_fixture->editor.setArchived(daily, true));
        const QString weekly = m_fixture->make(named(u"Weekly"_s, u"FREQ=WEEKLY;X-TIMES=2"_s));
        QVERIFY(m_fixture->checks.setValue(weekly, 2030'04'30, 1));
        QCOMPARE(onCalendar(), u"30 Weekly done, 01 Weekly"_s);
        AccountSettings settings{m_fixture->store.kit().manager(), m_fixture->store.kit().center(),
                                 m_fixture->store.userID()};
        QVERIFY(settings.change([](KWUserSettingsModel &model) { model.showsInCalendar = false; }));
        QCOMPARE(onCalendar(), QString{});
    }

    void loadsThePageAndReadsItAgainWhenItChanged()
    {
        HabitPageLoader loader{m_fixture->store.kit()};
        QStringList told;
        connect(&loader, &HabitPageLoader::pageLoaded, this, [&](const HabitPageContent &content) {
            told << (content.hasHabits() ? u"habits"_s : u"none"_s);
        });
        connect(&loader, &HabitPageLoader::detailLoaded, this,
                [&](const HabitDetailContent &content) { told << content.habit.name; });
        connect(&loader, &HabitPageLoader::detailGone, this, [&] { told << u"gone"_s; });
        const auto come = [&] { return std::exchange(told, {}).join(u' '); };
        loader.load();
        QTRY_COMPARE(told.size(), 1);
        QCOMPARE(come(), u"none"_s);
        const QString id = m_fixture->make();
        QTRY_COMPARE(told.size(), 1);
        QCOMPARE(come(), u"habits"_s);
        loader.showDetail(id, loader.today());
        QTRY_COMPARE(told.size(), 1);
        QCOMPARE(come(), u"Read"_s);
        QVERIFY(m_fixture->checks.setValue(id, today, 1));
        QTRY_COMPARE(told.size(), 2);
        come();
        QVERIFY(m_fixture->editor.remove(id));
        QTRY_COMPARE(told.size(), 2);
        QCOMPARE(come(), u"none gone"_s);
    }

    // The night from the 1st to the 2nd of May.
    void aNewDayOfHabitsEndsStreaks()
    {
        OrvaneKit &kit = m_fixture->store.kit();
        AccountSettings settings{kit.manager(), kit.center(), m_fixture->store.userID()};
        QVERIFY(settings.change([](KWUserSettingsModel &model) { model.habitDayStart = 3; }));
        QVERIFY(!settings.change([](KWUserSettingsModel &model) { model.habitDayStart = 7; }));
        const QString id = m_fixture->make();
        QVERIFY(m_fixture->checks.setValue(id, 2030'04'30, 1));
        int days = 0;
        const auto observation =
            kit.center().addObserver(KWNewHabitDayComesNotification, [&](const auto &) { ++days; });
        HabitDayWatch watch{kit};
        watch.dailyCheck();
        QCOMPARE(days, 1);
        m_fixture->store.clock.advance(16h);
        kit.center().post(KWNewDayComesNotification);
        QCOMPARE(days, 1);
        QCOMPARE(m_fixture->habit(id)->currentStreak, 1);
        m_fixture->store.clock.advance(2h);
        kit.center().post(KWNewHourComesNotification);
        QCOMPARE(days, 2);
        QTRY_COMPARE(m_fixture->habit(id)->currentStreak, 0);
        QCOMPARE(m_fixture->habit(id)->longestStreak, 1);
    }
};

ORVANE_TEST(HabitReader_test)
#include "HabitReader_test.moc"
