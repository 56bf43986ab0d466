#include "views/habits/HabitEditorDialog.h"

#include "gui/HabitHands.h"
#include "gui/WindowHelp.h"
#include "model/records/HabitFrequency.h"
#include "model/records/KWHabit.h"
#include "model/store/KWCoreDataManager.h"
#include "support/TestMain.h"
#include "views/habits/HabitListView.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

using namespace Qt::StringLiterals;

/// The window in which habits are made and changed.
class HabitEditorDialog_test : public QObject, private HabitHands {
    Q_OBJECT

    template <class Widget>
    Widget &find(const char *name)
    {
        return over<Widget>("habitEditor", name);
    }
    void openNew()
    {
        QTest::mouseClick(&m_client->find<QWidget>("newHabit"), Qt::LeftButton);
        QVERIFY(isOpen("habitEditor"));
        typeInto(find<QLineEdit>("habitEditorName"), u"Stretch"_s);
    }
    void openStored()
    {
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_F2);
        QVERIFY(isOpen("habitEditor"));
    }
    void press(const char *name) { QTest::mouseClick(&find<QAbstractButton>(name), Qt::LeftButton); }
    void save()
    {
        press("saveHabit");
        QVERIFY(!isOpen("habitEditor"));
    }
    void choose(const char *control, int segment)
    {
        QTest::mouseClick(find<QWidget>(control).findChildren<QAbstractButton *>().at(segment),
                          Qt::LeftButton);
    }

private Q_SLOTS:
    void init() { openHabits(); }
    void cleanup() { endClient(); }

    void makesOneOfEachFrequency_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("presses");
        QTest::addColumn<QString>("rule");
        QTest::addRow("every day") << 0 << QStringList{} << u"RRULE:FREQ=DAILY;INTERVAL=1"_s;
        QTest::addRow("weekdays") << 0 << QStringList{u"habitWeekday0"_s, u"habitWeekday6"_s}
                                  << u"RRULE:FREQ=DAILY;INTERVAL=1;BYDAY=MO,TU,WE,TH,FR"_s;
        QTest::addRow("times") << 1 << QStringList{u"habitTimesLess"_s}
                               << u"RRULE:FREQ=WEEKLY;INTERVAL=1;X-TIMES=4"_s;
        QTest::addRow("interval") << 2 << QStringList{u"habitIntervalMore"_s}
                                  << u"RRULE:FREQ=DAILY;INTERVAL=3"_s;
    }
    void makesOneOfEachFrequency()
    {
        QFETCH(int, kind);
        QFETCH(QStringList, presses);
        QFETCH(QString, rule);
        openNew();
        choose("habitFrequencyKind", kind);
        for (const QString &each : presses)
            press(each.toLatin1().constData());
        save();
        QCOMPARE(HabitFrequency::ofRule(habit(u"Stretch"_s).repeatRule).toRule(),
                 HabitFrequency::ofRule(rule).toRule());
        openStored(); // on the same kind, and untouched it stays
        save();
        QCOMPARE(HabitFrequency::ofRule(habit(u"Stretch"_s).repeatRule).toRule(),
                 HabitFrequency::ofRule(rule).toRule());
        takeBack();
        QTRY_VERIFY(m_client->find<QWidget>("firstHabit").isVisible());
    }

    void steppersStopAtTheirLimits()
    {
        openNew();
        choose("habitFrequencyKind", 2);
        QCOMPARE(find<QSpinBox>("habitInterval").value(), 2);
        for (int i = 0; i < 3; ++i)
            press("habitIntervalLess");
        QCOMPARE(find<QSpinBox>("habitInterval").value(), 1);
        for (int i = 0; i < 35; ++i)
            press("habitIntervalMore");
        QCOMPARE(find<QSpinBox>("habitInterval").value(), 30);
        choose("habitFrequencyKind", 1);
        for (int i = 0; i < 9; ++i)
            press("habitTimesMore");
        QCOMPARE(find<QSpinBox>("habitTimes").value(), 7);
        QCOMPARE(find<QLabel>("habitTimesWords").text(), u"Every day"_s);
        press("habitTimesLess");
        QCOMPARE(find<QLabel>("habitTimesWords").text(), u"6 days per week"_s);
    }

    void aRuleThatCannotBeChosenStaysUntilItIsTouched()
    {
        makeHabit(u"Stretch"_s, [](KWHabitModel &habit) {
            habit.repeatRule = u"RRULE:FREQ=DAILY;INTERVAL=45"_s;
            habit.iconRes = u"from elsewhere"_s;
            habit.color = u"#123456"_s;
        });
        const KWHabitModel before = habit(u"Stretch"_s);
        openStored();
        typeInto(find<QLineEdit>("habitEditorName"), u"Stretch well"_s);
        save();
        const KWHabitModel after = habit(u"Stretch well"_s);
        QCOMPARE(after.repeatRule, before.repeatRule);
        QCOMPARE(after.iconRes, before.iconRes);
        QCOMPARE(after.color, before.color);
        QCOMPARE(after.startStamp, before.startStamp);
    }

    void aGoalFromElsewhereThatIsNoneDoesNotStopAnEdit()
    {
        makeHabit(u"Stretch"_s);
        QVERIFY(KWCoreDataService{m_client->kit().manager()}.sync_save(
            [id = habitID(u"Stretch"_s)](ObjectContext &context) -> Result<void> {
                context.find<KWHabit>(id)->set(&KWHabitModel::goal, 0.0);
                return {};
            }));
        openStored();
        typeInto(find<QLineEdit>("habitEditorName"), u"Stretch well"_s);
        save();
        QCOMPARE(habit(u"Stretch well"_s).goal, 1.0);
    }

    void aNewGoalLeavesTheDaysThatWereCheckedIn()
    {
        makeHabit(u"Stretch"_s, [](KWHabitModel &habit) {
            habit.isRealType = true;
            habit.goal = 8;
        });
        goToHabit(u"Stretch"_s, 1);
        m_client->press(Qt::Key_Space);
        openStored();
        typeInto(find<QLineEdit>("habitGoal"), u"10"_s);
        save();
        QCOMPARE(habit(u"Stretch"_s).goal, 10.0);
        QCOMPARE(dayOf(u"Stretch"_s, 1).goal, 8.0);
        QCOMPARE(dayOf(u"Stretch"_s).goal, 10.0);
    }

    void whatIsWrongIsSaidAndNothingIsLost()
    {
        openNew();
        choose("habitKind", 1);
        typeInto(find<QLineEdit>("habitEditorName"), u" "_s);
        typeInto(find<QLineEdit>("habitGoal"), u"0"_s);
        typeInto(find<QLineEdit>("habitUnit"), u"pages"_s);
        press("saveHabit");
        QVERIFY(isOpen("habitEditor"));
        QCOMPARE(find<QLabel>("habitNameWrong").text(), u"A habit needs a name."_s);
        typeInto(find<QLineEdit>("habitEditorName"), u"Stretch"_s);
        press("saveHabit");
        QVERIFY(find<QLabel>("habitGoalWrong").isVisible());
        QVERIFY(!find<QLabel>("habitNameWrong").isVisible());
        typeInto(find<QLineEdit>("habitGoal"), u"12"_s);
        typeInto(find<QLineEdit>("habitReminderTime"), u"noonish"_s);
        press("saveHabit");
        QVERIFY(find<QLabel>("habitReminderWrong").isVisible());
        typeInto(find<QLineEdit>("habitReminderTime"), u"noon-ish"_s);
        QVERIFY(!find<QLabel>("habitReminderWrong").isVisible());
        find<QAbstractButton>("habitAddReminder").click();
        QVERIFY(find<QLabel>("habitReminderWrong").isVisible());
        typeInto(find<QLineEdit>("habitReminderTime"), u"21:30"_s);
        press("habitAddReminder");
        typeInto(find<QLineEdit>("habitReminderTime"), u"8:15"_s);
        save();
        const KWHabitModel made = habit(u"Stretch"_s);
        QCOMPARE(made.goal, 12.0);
        QCOMPARE(made.unit, u"pages"_s);
        QCOMPARE(made.reminders, QStringList({u"08:15"_s, u"21:30"_s}));
    }

    void aNewSectionIsMadeWithTheHabitAndTakenBackWithIt()
    {
        openNew();
        auto &sections = find<QComboBox>("habitSection");
        sections.setCurrentIndex(sections.count() - 1);
        press("saveHabit");
        QCOMPARE(find<QLabel>("habitSectionWrong").text(), u"A section needs a name."_s);
        typeInto(find<QLineEdit>("habitNewSection"), u"morning"_s);
        press("saveHabit");
        QCOMPARE(find<QLabel>("habitSectionWrong").text(), u"There is a section of that name already."_s);
        typeInto(find<QLineEdit>("habitNewSection"), u"Noon"_s);
        save();
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Noon] Stretch"_s);
        habits().setFocus();
        takeBack();
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night]"_s);
    }

    void escapeChangesNothingAndTabReachesEverything()
    {
        openNew();
        verifyControlsHaveNames(over<QWidget>("habitEditor"));
        QTest::keyClick(&find<QLineEdit>("habitEditorName"), Qt::Key_Escape);
        QVERIFY(!isOpen("habitEditor"));
        QVERIFY(m_client->find<QWidget>("firstHabit").isVisible());
    }
};

ORVANE_TEST(HabitEditorDialog_test)
#include "HabitEditorDialog_test.moc"
