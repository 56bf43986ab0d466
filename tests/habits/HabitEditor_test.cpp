#include "habits/HabitEditor.h"

#include "habits/HabitFixture.h"
#include "habits/HabitWording.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabitSection.h"
#include "model/store/HabitDays.h"
#include "support/Answers.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class HabitEditor_test : public QObject {
    Q_OBJECT

    std::unique_ptr<HabitFixture> m_fixture;

    HabitEditor &editor() { return m_fixture->editor; }
    QString order(const QString &sectionID = K_HABIT_SECTION_ID_OTHERS)
    {
        QStringList names;
        for (const KWHabit *each :
             KWHabit::fetchAll(m_fixture->store.userID(), HabitScope::Active, m_fixture->store.context()))
            if ((*each)->sectionID == sectionID) names << (*each)->name;
        return names.join(u' ');
    }
    QString make(const QString &name)
    {
        KWHabitModel habit;
        habit.name = name;
        return m_fixture->make(habit);
    }
    QString sections()
    {
        return joined(KWHabitSection::ofUser(m_fixture->store.userID(), m_fixture->store.context()),
                      [](const KWHabitSection *each) { return (*each)->name; });
    }

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<HabitFixture>(); }

    void saysWhatIsWrongWithAHabit()
    {
        const QString id = make(u"Read"_s);
        struct Case {
            std::function<void(KWHabitModel &)> edit;
            QStringView sentence;
        };
        for (const Case &each :
             {Case{[](auto &habit) { habit.name = u" \n "_s; }, u"needs a name"},
              Case{[](auto &habit) { habit.goal = 0; }, u"goal"},
              Case{[](auto &habit) { habit.goal = -1; }, u"goal"},
              Case{[](auto &habit) { habit.goal = 2e9; }, u"goal"},
              Case{[](auto &habit) { habit.step = 0; }, u"step"},
              Case{[](auto &habit) { habit.repeatRule = u"FREQ=DAILY;INTERVAL=0"_s; }, u"INTERVAL"},
              Case{[](auto &habit) {
                       habit.reminders = {u"09:00"_s, u"25:00"_s};
                   },
                   u"25:00"},
              Case{[](auto &habit) { habit.startStamp = 2026'13'32; }, u"20261332"}}) {
            QVERIFY2(isRefused(editor().update(id, each.edit), each.sentence),
                     qPrintable(each.sentence.toString()));
            KWHabitModel made = m_fixture->habit(id).model();
            each.edit(made);
            QVERIFY(isRefused(editor().create(made), each.sentence));
        }
        QCOMPARE(m_fixture->habit(id)->name, u"Read"_s);
        QVERIFY(isRefused(editor().remove(u"none"_s), u"no such habit"));
    }

    void aNewHabitIsTakenBack()
    {
        KWHabitModel habit;
        habit.name = u"Read"_s;
        habit.reminders = {u"20:00"_s};
        const auto made = editor().create(habit);
        QVERIFY(made);
        QCOMPARE(m_fixture->habit(made->sid)->startStamp, HabitFixture::today);
        QVERIFY(made->undo.undo(m_fixture->store.kit().manager()));
        const KWHabit *left = m_fixture->store.context().find<KWHabit>(made->sid);
        QVERIFY(!left || left->isDeleted());
    }

    void aNewRuleCountsTheStreaksAnew()
    {
        const QString id = make(u"Read"_s);
        for (const int stamp : {2030'04'26, 2030'04'29, HabitFixture::today})
            QVERIFY(m_fixture->checks.setValue(id, stamp, 1));
        QCOMPARE(m_fixture->habit(id)->longestStreak, 1);
        const auto changed = editor().update(
            id, [](KWHabitModel &habit) { habit.repeatRule = u"FREQ=DAILY;BYDAY=MO,WE,FR"_s; });
        QCOMPARE(m_fixture->habit(id)->longestStreak, 3);
        QVERIFY(changed->undo(m_fixture->store.kit().manager()));
        QCOMPARE(m_fixture->habit(id)->longestStreak, 1);
    }

    void comesBackWithItsDays()
    {
        const QString id = make(u"Read"_s);
        QVERIFY(m_fixture->checks.setValue(id, HabitFixture::today, 1));
        for (const bool isArchived : {true, false}) {
            const auto token = isArchived ? editor().setArchived(id, true) : editor().remove(id);
            QVERIFY(token);
            QCOMPARE(order(), QString{});
            QVERIFY(token->undo(m_fixture->store.kit().manager()));
            QCOMPARE(order(), u"Read"_s);
            QCOMPARE(m_fixture->told(id), u"done 1/1"_s);
        }
        QVERIFY(editor().setArchived(id, true) && editor().setArchived(id, false));
        QCOMPARE(m_fixture->habit(id)->currentStreak, 1);
    }

    void anArchivedOneIsDueUpToTheLastDayEntered()
    {
        const QString id = make(u"Read"_s), untouched = make(u"Draw"_s);
        QVERIFY(m_fixture->checks.setValue(id, 2030'04'27, 1) && m_fixture->checks.skip(id, 2030'04'28));
        const auto dueDays = [this](const QString &habitID) {
            const Day last = *DayStamp::toDay(HabitFixture::today);
            QStringList due;
            for (const HabitDay &each :
                 readHabitDays(m_fixture->habit(habitID), last - std::chrono::days{5}, last))
                if (each.isDue) due << QString::number(DayStamp::fromDay(each.day) % 100);
            return due.join(u' ');
        };
        for (const auto &[isArchived, due] : {std::pair{false, u"26 27 28 29 30 1"_s},
                                              {true, u"26 27 28"_s},
                                              {false, u"26 27 28 29 30 1"_s}}) {
            QVERIFY(editor().setArchived(id, isArchived));
            QCOMPARE(dueDays(id), due);
        }
        QVERIFY(editor().setArchived(untouched, true));
        QCOMPARE(dueDays(untouched), QString{});
    }

    void putsHabitsInOrder()
    {
        QVERIFY(editor().makeDefaultSections());
        const QString a = make(u"a"_s), b = make(u"b"_s), c = make(u"c"_s);
        const QString morning =
            KWHabitSection::ofUser(m_fixture->store.userID(), m_fixture->store.context()).first()->sid();
        QVERIFY(editor().move(c, K_HABIT_SECTION_ID_OTHERS, a));
        QCOMPARE(order(), u"c a b"_s);
        QVERIFY(editor().move(c, K_HABIT_SECTION_ID_OTHERS, {}));
        QCOMPARE(order(), u"a b c"_s);
        const auto moved = editor().move(b, morning, {});
        QCOMPARE(order() + u" | "_s + order(morning), u"a c | b"_s);
        QVERIFY(editor().move(c, morning, b));
        QCOMPARE(order(morning), u"c b"_s);
        QVERIFY(isRefused(moved->undo(m_fixture->store.kit().manager())) || order(morning) == u"c"_s);
    }

    void keepsSections()
    {
        QVERIFY(editor().makeDefaultSections());
        const auto made = editor().createSection(u"Weekend"_s);
        QVERIFY(made);
        for (const QString &wrong : {u""_s, u"weekend"_s, u"MORNING"_s})
            QVERIFY(isRefused(editor().createSection(wrong)));
        KWHabitModel habit;
        habit.name = u"Bake"_s;
        habit.sectionID = made->sid;
        m_fixture->make(habit);
        QVERIFY(editor().renameSection(made->sid, u"Free days"_s));
        const QString first =
            KWHabitSection::ofUser(m_fixture->store.userID(), m_fixture->store.context()).first()->sid();
        QVERIFY(editor().moveSection(made->sid, first));
        QCOMPARE(sections(), u"Free days Morning Afternoon Night"_s);
        const auto removed = editor().removeSection(made->sid);
        QCOMPARE(sections(), u"Morning Afternoon Night"_s);
        QCOMPARE(order(), u"Bake"_s);
        QVERIFY(removed->undo(m_fixture->store.kit().manager()));
        QCOMPARE(order(made->sid), u"Bake"_s);
    }

    void wordsFrequenciesAndAmounts()
    {
        const QLocale english{QLocale::English, QLocale::UnitedStates};
        const auto words = [&](const QString &rule) {
            return HabitWording::frequency(HabitFrequency::ofRule(rule), std::chrono::Sunday, english);
        };
        for (const auto &[rule, expected] : {std::pair{u"FREQ=DAILY"_s, u"Every day"_s},
                                             {u"FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR,SA,SU"_s, u"Every day"_s},
                                             {u"FREQ=DAILY;BYDAY=MO,SU"_s, u"Sun, Mon"_s},
                                             {u"FREQ=WEEKLY;X-TIMES=5"_s, u"5 days per week"_s},
                                             {u"FREQ=WEEKLY;X-TIMES=1"_s, u"1 day per week"_s},
                                             {u"FREQ=WEEKLY;X-TIMES=7"_s, u"Every day"_s},
                                             {u"FREQ=DAILY;INTERVAL=3"_s, u"Every 3 Days"_s}}) {
            QCOMPARE(words(rule), expected);
            QCOMPARE(words(HabitFrequency::ofRule(rule).toRule()), expected);
        }
        QCOMPARE(HabitWording::amountWithUnit(1234.5, u"ml"_s, english), u"1,234.5 ml"_s);
        QCOMPARE(HabitWording::amount(0.1 + 0.2, english), u"0.3"_s);
    }

    void readsAmountsAsTyped()
    {
        const QLocale english{QLocale::English, QLocale::UnitedStates}, german{QLocale::German};
        for (const auto &[typed, locale, expected] : {std::tuple{u"1,234.5"_s, english, 1234.5},
                                                      {u" 8 "_s, english, 8.0},
                                                      {u"1,5"_s, german, 1.5},
                                                      {u"1.234,5"_s, german, 1234.5},
                                                      {u"1.5"_s, german, 1.5},
                                                      {u"0"_s, german, 0.0}}) {
            const auto amount = HabitWording::toAmount(typed, locale);
            QVERIFY2(amount && *amount == expected, qPrintable(typed));
        }
        for (const QString &wrong :
             {u""_s, u"eight"_s, u"-1"_s, u"1e300"_s, u"nan"_s, u"inf"_s, u"1,5"_s, u"1 2"_s})
            QVERIFY2(isRefused(HabitWording::toAmount(wrong, english)), qPrintable(wrong));
    }
};

ORVANE_TEST(HabitEditor_test)
#include "HabitEditor_test.moc"
