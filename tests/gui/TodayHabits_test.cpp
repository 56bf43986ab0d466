#include "gui/HabitHands.h"
#include "gui/WindowHelp.h"
#include "habits/KWHabitCheckHelper.h"
#include "support/TestMain.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"
#include "views/main/MainWindow.h"

#include <QMenu>

using namespace Qt::StringLiterals;

/// Habits among the tasks of Today. It is Saturday, 21 November 2026.
class TodayHabits_test : public QObject, HabitHands {
    Q_OBJECT

    QString stateOf(const QString &name) const
    {
        const HabitDay day = dayOf(name);
        return u"%1 %2"_s.arg(int(day.state)).arg(day.value);
    }

private Q_SLOTS:
    void init()
    {
        openHabits();
        makeHabit(u"Read"_s);
        makeHabit(u"Drink"_s, [](KWHabitModel &habit) {
            habit.isRealType = true;
            habit.goal = 2;
        });
        m_client->openList(u"Today"_s);
        QTRY_COMPARE(shown(), u"[Habits] Read Drink"_s);
    }
    void cleanup() { endClient(); }

    void areCheckedByKeyAndByMouse()
    {
        goTo(taskRow(u"Read"_s));
        QCOMPARE(list().currentTask(), QString{});
        m_client->press(Qt::Key_Space);
        QCOMPARE(stateOf(u"Read"_s), u"1 1"_s);
        const auto spoken = [this](const QString &name) {
            return pane().model().data(taskRow(name), Qt::AccessibleTextRole).toString();
        };
        QTRY_COMPARE(spoken(u"Read"_s), u"Read, Habit, Done, 1 day streak"_s);
        takeBack();
        QCOMPARE(stateOf(u"Read"_s), u"0 0"_s);
        QTRY_COMPARE(spoken(u"Read"_s), u"Read, Habit"_s);

        for (const QString &expected : {u"0 1"_s, u"1 2"_s, u"0 1"_s}) {
            const QRect row = list().visualRect(taskRow(u"Drink"_s));
            QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, {20, row.center().y()});
            QCOMPARE(stateOf(u"Drink"_s), expected);
            QTRY_COMPARE(spoken(u"Drink"_s), expected == u"1 2" ? u"Drink, Habit, Done, 1 day streak"_s
                                                                : u"Drink, Habit, 1 of 2"_s);
        }
    }

    void spaceTakesBackThatADayWasNotAchieved()
    {
        KWHabitCheckHelper checks{m_client->kit()};
        const QString id = habitID(u"Drink"_s);
        constexpr int today = 2026'11'21;
        QVERIFY(checks.setValue(id, today, 1) && checks.markUnAchieved(id, today));
        goTo(taskRow(u"Drink"_s));
        m_client->press(Qt::Key_Space);
        QCOMPARE(stateOf(u"Drink"_s), u"0 1"_s);
    }

    void canOnlyBeCheckedAndOpened()
    {
        goTo(taskRow(u"Drink"_s));
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F2})
            m_client->press(key);
        m_client->press(Qt::Key_Menu);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(shown(), u"[Habits] Read Drink"_s);
        m_client->press(Qt::Key_Return);
        QTRY_VERIFY(m_client->window()->isHabitsShown());
        QTRY_COMPARE(habits().currentHabit(), habitID(u"Drink"_s));
    }
};

ORVANE_TEST(TodayHabits_test)
#include "TodayHabits_test.moc"
