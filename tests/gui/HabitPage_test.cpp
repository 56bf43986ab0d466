#include "gui/HabitHands.h"
#include "gui/WindowHelp.h"
#include "habits/HabitEditor.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/DayStamp.h"
#include "model/records/KWSmartProject.h"
#include "support/TestMain.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>

using namespace Qt::StringLiterals;

/// The page of habits, by keyboard and mouse.
class HabitPage_test : public QObject, private HabitHands {
    Q_OBJECT

    HabitPane &page() { return m_client->window()->habitPane(); }
    void clickDay(const QString &name, int ago)
    {
        const QModelIndex day = page().model().indexOf(habitID(name), HabitListModel::todayColumn - ago);
        QTest::mouseClick(habits().viewport(), Qt::LeftButton, {}, habits().visualRect(day).center());
    }
    static void makeAmount(KWHabitModel &habit)
    {
        habit.isRealType = true;
        habit.goal = 8;
        habit.unit = u"cups"_s;
    }

private Q_SLOTS:
    void init() { openHabits(); }
    void cleanup() { endClient(); }

    void anEmptyPageOffersTheFirstHabit()
    {
        QVERIFY(m_client->find<QWidget>("firstHabit").isVisible());
        QTest::mouseClick(&m_client->find<QWidget>("firstHabit"), Qt::LeftButton);
        QVERIFY(isOpen("habitEditor"));
        over<QWidget>("habitEditor").close();
        comeBack();
        m_client->press(Qt::Key_Insert);
        QVERIFY(isOpen("habitEditor"));
    }

    void theKeyboardChecksInAndTakesBack()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Drink water"_s, makeAmount);
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_Space);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Done);
        m_client->press(Qt::Key_Space);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Open);

        // From the name through the days: yesterday is two to the left of the end.
        for (int i = 0; i < 6; ++i)
            m_client->press(Qt::Key_Right);
        m_client->press(Qt::Key_Return);
        QVERIFY(dayOf(u"Stretch"_s, 1).state == HabitDayState::Done);
        m_client->press(Qt::Key_Down); // in the same column
        m_client->press(Qt::Key_Space);
        m_client->press(Qt::Key_Space);
        QCOMPARE(dayOf(u"Drink water"_s, 1).value, 2.0);
        m_client->press(Qt::Key_Space, Qt::ShiftModifier);
        QCOMPARE(dayOf(u"Drink water"_s, 1).value, 1.0);
        takeBack();
        QCOMPARE(dayOf(u"Drink water"_s, 1).value, 2.0);
    }

    void theSidebarCountsWhatIsOpenToday()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Read"_s);
        const auto count = [this] {
            return m_client->rooms().sidebar().countOf(
                *treeModel().nodeAt(listSection(KWSmartProject::habit())));
        };
        QTRY_COMPARE(count(), std::optional{2});
        goToHabit(u"Read"_s);
        m_client->press(Qt::Key_Space);
        QTRY_COMPARE(count(), std::optional{1});
    }

    void aClickOpensTheDayAndUndoesWhatWasNotAchieved()
    {
        makeHabit(u"Stretch"_s);
        clickDay(u"Stretch"_s, 2);
        QVERIFY(isOpen("habitCheckIn"));
        QTest::mouseClick(&over<QAbstractButton>("habitCheckIn", "habitDayUnAchieved"), Qt::LeftButton);
        QVERIFY(!isOpen("habitCheckIn"));
        QVERIFY(dayOf(u"Stretch"_s, 2).state == HabitDayState::UnAchieved);
        QTRY_VERIFY(page().content().rowOf(habitID(u"Stretch"_s))->week[4].state ==
                    HabitDayState::UnAchieved);
        clickDay(u"Stretch"_s, 2);
        QVERIFY(!isOpen("habitCheckIn"));
        QVERIFY(dayOf(u"Stretch"_s, 2).state == HabitDayState::Open);
        takeBack();
        QVERIFY(dayOf(u"Stretch"_s, 2).state == HabitDayState::UnAchieved);
        // The keyboard opens it, for a note.
        goToHabit(u"Stretch"_s, 2);
        m_client->press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(isOpen("habitCheckIn"));
        QVERIFY(dayOf(u"Stretch"_s, 2).state == HabitDayState::UnAchieved);
    }

    void aDayIsSkippedAndNotSkippedInTheMenu()
    {
        makeHabit(u"Stretch"_s);
        goToHabit(u"Stretch"_s, 0);
        chooseOfHabit(u"Skip"_s);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Skipped);
        QTRY_VERIFY(page().content().rowOf(habitID(u"Stretch"_s))->today().state == HabitDayState::Skipped);
        chooseOfHabit(u"Undo Skip"_s);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Open);
    }

    void theDayTakesAnAmountAndANoteAsOne()
    {
        makeHabit(u"Drink water"_s, makeAmount);
        goToHabit(u"Drink water"_s, 0);
        m_client->press(Qt::Key_Return, Qt::ControlModifier);
        typeInto(over<QLineEdit>("habitCheckIn", "habitDayAmount"), u"5"_s);
        typeInto(over<QWidget>("habitCheckIn", "habitDayNote"), u"Warm day"_s);
        m_client->press(Qt::Key_Return);
        QVERIFY(!isOpen("habitCheckIn"));
        QCOMPARE(dayOf(u"Drink water"_s).value, 5.0);
        QVERIFY(dayOf(u"Drink water"_s).hasNote);
        goToHabit(u"Drink water"_s, 0);
        takeBack();
        QCOMPARE(dayOf(u"Drink water"_s).value, 0.0);
        QVERIFY(!dayOf(u"Drink water"_s).hasNote);
    }

    void escapeLeavesTheDayAndAWrongAmountSaysSo()
    {
        makeHabit(u"Drink water"_s, makeAmount);
        goToHabit(u"Drink water"_s, 0);
        m_client->press(Qt::Key_Return, Qt::ControlModifier);
        auto &amount = over<QLineEdit>("habitCheckIn", "habitDayAmount");
        for (const auto &[wrong, sentence] : {std::pair{u"lots"_s, u"“lots” is no number."_s},
                                              {u" "_s, u"Type an amount, 0 for none."_s},
                                              {u"-1"_s, u"An amount cannot be below 0."_s}}) {
            typeInto(amount, wrong);
            QTest::keyClick(&amount, Qt::Key_Return);
            QVERIFY(isOpen("habitCheckIn"));
            QCOMPARE(over<QLabel>("habitCheckIn", "habitDayProblem").text(), sentence);
            QCOMPARE(amount.text(), wrong);
        }
        QTest::keyClick(&amount, Qt::Key_Escape);
        QVERIFY(!isOpen("habitCheckIn"));
        QCOMPARE(dayOf(u"Drink water"_s).value, 0.0);

        // A click beside it.
        goToHabit(u"Drink water"_s, 0);
        m_client->press(Qt::Key_Return, Qt::ControlModifier);
        typeInto(over<QLineEdit>("habitCheckIn", "habitDayAmount"), u"lots"_s);
        typeInto(over<QWidget>("habitCheckIn", "habitDayNote"), u"Warm day"_s);
        over<QWidget>("habitCheckIn").close();
        QVERIFY(dayOf(u"Drink water"_s).hasNote);
        QVERIFY2(toastText().contains(u"“lots” is no number."_s), qPrintable(toastText()));
    }

    void aHabitThatGoesTakesItsOpenDayAlong()
    {
        makeHabit(u"Stretch"_s);
        HabitEditor editor{m_client->kit().manager(), m_client->kit().account().currentUserID()};
        const QString id = habitID(u"Stretch"_s);
        for (const bool isDeleted : {false, true}) {
            goToHabit(u"Stretch"_s, 0);
            m_client->press(Qt::Key_Return, Qt::ControlModifier);
            QVERIFY(isOpen("habitCheckIn"));
            const auto done = isDeleted ? editor.remove(id) : editor.setArchived(id, true);
            QVERIFY(done);
            QVERIFY(!isOpen("habitCheckIn"));
            QVERIFY2(toastText().contains(u"meanwhile"_s), qPrintable(toastText()));
            if (!isDeleted) QVERIFY(editor.setArchived(id, false));
            if (!isDeleted) QTRY_VERIFY(page().model().indexOf(id).isValid());
        }
    }

    void theOpenDayStaysItsDayAtMidnight()
    {
        makeHabit(u"Stretch"_s);
        goToHabit(u"Stretch"_s, 0);
        m_client->press(Qt::Key_Return, Qt::ControlModifier);
        m_client->clock.advance(std::chrono::hours{24});
        QTest::mouseClick(&over<QAbstractButton>("habitCheckIn", "habitDayDone"), Qt::LeftButton);
        QVERIFY(dayOf(u"Stretch"_s, 1).state == HabitDayState::Done);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Open);
    }

    void archivedHabitsWaitBehindTheMenuOfThePage()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Read"_s);
        goToHabit(u"Stretch"_s);
        chooseOfHabit(u"Archive"_s);
        QTRY_COMPARE(page().content().archived.size(), 1);
        page().show(HabitListModel::Shows::Archived);
        QCOMPARE(shownHabits(), u"[Archived] Stretch"_s);
        clickDay(u"Stretch"_s, 0);
        QVERIFY(!isOpen("habitCheckIn"));
        goToHabit(u"Stretch"_s, 0);
        m_client->press(Qt::Key_Space);
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Open);
        chooseOfHabit(u"Restore"_s);
        QTRY_COMPARE(page().content().archived.size(), 0);
        QTest::mouseClick(&m_client->find<QWidget>("backToHabits"), Qt::LeftButton);
        QTRY_VERIFY(shownHabits().contains(u"Stretch"_s));
    }

    void habitsMoveByKeyBetweenSections()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Read"_s);
        QCOMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Stretch Read"_s);
        goToHabit(u"Read"_s);
        m_client->press(Qt::Key_Up, Qt::AltModifier);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Read Stretch"_s);
        m_client->press(Qt::Key_Up, Qt::AltModifier);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] Read [Others] Stretch"_s);
        QCOMPARE(habits().currentHabit(), habitID(u"Read"_s));
        m_client->press(Qt::Key_Down, Qt::AltModifier);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Read Stretch"_s);
    }

    void habitsAreDraggedBetweenRowsAndOntoSections()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Read"_s);
        const auto drop = [this](const QString &name, const QModelIndex &onto, double share) {
            QMimeData data;
            data.setData(u"application/x-orvane-habit"_s, habitID(name).toUtf8());
            const QRect row = habits().visualRect(onto);
            const QPoint place{row.center().x(), row.top() + int(row.height() * share)};
            QDragEnterEvent enter{place, Qt::MoveAction, &data, Qt::LeftButton, {}};
            QApplication::sendEvent(habits().viewport(), &enter);
            QDragMoveEvent move{place, Qt::MoveAction, &data, Qt::LeftButton, {}};
            QApplication::sendEvent(habits().viewport(), &move);
            QDropEvent end{QPointF{place}, Qt::MoveAction, &data, Qt::LeftButton, {}};
            QApplication::sendEvent(habits().viewport(), &end);
        };
        drop(u"Read"_s, page().model().indexOf(habitID(u"Stretch"_s)), 0.2);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Read Stretch"_s);
        drop(u"Stretch"_s, page().model().index(0, 0), 0.5);
        QTRY_COMPARE(shownHabits(), u"[Morning] Stretch [Afternoon] [Night] [Others] Read"_s);
        takeBack();
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Read Stretch"_s);
    }

    void deletingIsTakenBack()
    {
        makeHabit(u"Stretch"_s);
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_Space);
        m_client->press(Qt::Key_Delete);
        QTRY_VERIFY(m_client->find<QWidget>("firstHabit").isVisible());
        takeBack();
        QTRY_VERIFY(shownHabits().contains(u"Stretch"_s));
        QVERIFY(dayOf(u"Stretch"_s).state == HabitDayState::Done);
    }

    void sectionsFoldAndStayFolded()
    {
        makeHabit(u"Stretch"_s);
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_Left); // to the section
        m_client->press(Qt::Key_Left);
        const QModelIndex others = page().model().indexOfSection(K_HABIT_SECTION_ID_OTHERS);
        QVERIFY(!habits().isExpanded(others));
        makeHabit(u"Read"_s);
        QVERIFY(!habits().isExpanded(page().model().indexOfSection(K_HABIT_SECTION_ID_OTHERS)));
        m_client->restart();
        QTRY_VERIFY(page().model().indexOf(habitID(u"Read"_s)).isValid()); // the page comes back, too
        QVERIFY(!habits().isExpanded(page().model().indexOfSection(K_HABIT_SECTION_ID_OTHERS)));
    }

    void aSectionIsMadeRenamedAndDeleted()
    {
        makeHabit(u"Stretch"_s);
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_Left);
        chooseOfHabit(u"New Section…"_s);
        auto &field = over<QLineEdit>("habitNamePopup", "habitNameField");
        typeInto(field, u"night"_s);
        QTest::keyClick(&field, Qt::Key_Return);
        QCOMPARE(over<QLabel>("habitNamePopup", "habitNameProblem").text(),
                 u"There is a section of that name already."_s);
        typeInto(field, u"Noon"_s);
        QTest::keyClick(&field, Qt::Key_Return);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Noon] [Others] Stretch"_s);
        habits().setCurrentIndex(page().model().index(3, 0));
        chooseOfHabit(u"Move Up"_s);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Noon] [Night] [Others] Stretch"_s);
        habits().setCurrentIndex(page().model().index(2, 0));
        chooseOfHabit(u"Delete Section"_s);
        QTRY_COMPARE(shownHabits(), u"[Morning] [Afternoon] [Night] [Others] Stretch"_s);
    }

    void aNarrowWindowKeepsTodayAndOpensTheDetailAsASheet()
    {
        makeHabit(u"Stretch"_s);
        m_client->window()->resize(720, 600);
        QTRY_VERIFY(habits().isColumnHidden(1));
        QVERIFY(!habits().isColumnHidden(HabitListModel::todayColumn));
        QVERIFY(!m_client->find<QWidget>("habitDetail").isVisible());
        goToHabit(u"Stretch"_s);
        m_client->press(Qt::Key_Return, Qt::AltModifier);
        QVERIFY(m_client->find<QWidget>("habitDetail").isVisible());
        m_client->press(Qt::Key_Escape);
        QVERIFY(!m_client->find<QWidget>("habitDetail").isVisible());
        QVERIFY(habits().hasFocus());
    }

    void rowsAndDaysHaveNamesForScreenReaders()
    {
        makeHabit(u"Drink water"_s, makeAmount);
        const auto said = [this](int column) {
            return page().model().indexOf(habitID(u"Drink water"_s), column).data(Qt::AccessibleTextRole);
        };
        QCOMPARE(said(0).toString(), u"Drink water, Every day, 8 cups, Today: open"_s);
        QCOMPARE(said(6).toString(), u"Drink water, Friday 20 November: not due"_s);
        verifyControlsHaveNames(page());
        verifyControlsHaveNames(m_client->find<QWidget>("habitDetail"));
    }

    void aLinkOpensTheHabit()
    {
        makeHabit(u"Stretch"_s);
        makeHabit(u"Read"_s);
        m_client->openList(u"Today"_s);
        QVERIFY(!page().isVisible());
        m_client->rooms().application().open({.links = {u"orvane://habit/"_s + habitID(u"Read"_s)}});
        QVERIFY(page().isVisible());
        QTRY_COMPARE(habits().currentHabit(), habitID(u"Read"_s));
        for (const bool isCalendar : {true, false}) {
            m_client->rooms().application().open(
                {.links = {isCalendar ? u"orvane://list/calendar"_s : u"orvane://list/habit"_s}});
            QCOMPARE(page().isVisible(), !isCalendar);
            QCOMPARE(m_client->window()->isCalendarShown(), isCalendar);
        }
    }

    void commandsForTasksRestAndANewTaskGoesToItsList()
    {
        makeHabit(u"Stretch"_s);
        QVERIFY(!m_client->rooms().menu().action(MenuCommand::SetToday).isEnabled());
        m_client->rooms().menu().action(MenuCommand::AddTask).trigger();
        QVERIFY(!page().isVisible());
        QVERIFY(m_client->window()->listPane().isVisible());
    }
};

ORVANE_TEST(HabitPage_test)
#include "HabitPage_test.moc"
