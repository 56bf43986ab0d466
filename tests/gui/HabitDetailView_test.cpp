#include "views/habits/HabitDetailView.h"

#include "gui/HabitHands.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitRecord.h"
#include "support/TestMain.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitMonthGrid.h"
#include "views/habits/HabitNoteEdit.h"
#include "views/habits/HabitNoteRow.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QLabel>

using namespace Qt::StringLiterals;

/// The detail of a habit beside the page.
class HabitDetailView_test : public QObject, private HabitHands {
    Q_OBJECT

    HabitMonthGrid &month() { return m_client->find<HabitMonthGrid>("habitMonth"); }
    const HabitMonthModel &days() { return static_cast<const HabitMonthModel &>(*month().model()); }
    QString text(const char *name) { return m_client->find<QLabel>(name).text(); }
    QString figure(const char *name) { return m_client->find<QWidget>(name).findChild<QLabel *>()->text(); }
    void press(const char *name)
    {
        QTest::mouseClick(&m_client->find<QAbstractButton>(name), Qt::LeftButton);
    }
    QList<HabitNoteRow *> noteRows()
    {
        auto rows = m_client->window()->findChildren<HabitNoteRow *>();
        rows.removeIf([](const HabitNoteRow *each) { return each->isHidden(); });
        return rows;
    }
    void show(const QString &name)
    {
        goToHabit(name);
        QTRY_COMPARE(text("habitName"), name);
    }

private Q_SLOTS:
    void init()
    {
        openHabits();
        makeHabit(u"Stretch"_s, [](KWHabitModel &habit) { habit.startStamp = 20261110; });
        makeHabit(u"Drink water"_s, [](KWHabitModel &habit) {
            habit.isRealType = true;
            habit.goal = 2;
            habit.unit = u"cups"_s;
        });
    }
    void cleanup() { endClient(); }

    void theCardOfTodayStepsAndTheFiguresFollow()
    {
        show(u"Drink water"_s);
        QVERIFY(!m_client->find<QAbstractButton>("habitLess").isEnabled());
        press("habitMore");
        QTRY_COMPARE(text("habitTodayValue"), u"1"_s);
        press("habitMore");
        QTRY_COMPARE(figure("habitDone"), u"1"_s);
        QCOMPARE(figure("habitStreak"), u"1"_s);
        press("habitLess");
        QTRY_COMPARE(figure("habitDone"), u"0"_s);
        show(u"Stretch"_s);
        QTRY_COMPARE(text("habitTodayWords"), u"Not done yet"_s);
        press("habitMore");
        QTRY_COMPARE(text("habitTodayWords"), u"Done"_s);
        QCOMPARE(figure("habitRate"), u"8%"_s); // of twelve due days
        press("habitMore");
        QTRY_COMPARE(text("habitTodayWords"), u"Not done yet"_s);
    }

    void itFollowsTheHabitAlsoAfterAnotherPage()
    {
        show(u"Drink water"_s);
        m_client->openList(u"Today"_s);
        m_client->rooms().menu().action(MenuCommand::OpenHabit).trigger();
        goToHabit(u"Drink water"_s);
        m_client->press(Qt::Key_Space);
        QTRY_COMPARE(text("habitTodayValue"), u"1"_s);
    }

    void theMonthTurnsAndItsDaysAreOpened()
    {
        show(u"Stretch"_s);
        QCOMPARE(text("habitMonthName"), u"November 2026"_s);
        const QModelIndex day = days().indexOf(*DayStamp::toDay(20261112));
        QVERIFY(days().dayAt(day)->isMissed(days().today()));
        month().setFocus();
        month().setCurrentIndex(day);
        m_client->press(Qt::Key_Return);
        QVERIFY(isOpen("habitCheckIn"));
        QTest::mouseClick(&over<QAbstractButton>("habitCheckIn", "habitDayDone"), Qt::LeftButton);
        QTRY_VERIFY(days().dayAt(day)->state == HabitDayState::Done);

        comeBack();
        month().setFocus();
        month().setCurrentIndex(days().indexOf(*DayStamp::toDay(20261125)));
        m_client->press(Qt::Key_Return);
        QVERIFY(!isOpen("habitCheckIn"));
        QVERIFY2(toastText().contains(u"This day is still to come."_s), qPrintable(toastText()));

        m_client->press(Qt::Key_PageUp);
        QTRY_COMPARE(text("habitMonthName"), u"October 2026"_s);
        press("habitMonthAfter");
        QTRY_COMPARE(text("habitMonthName"), u"November 2026"_s);
    }

    void theCardOfTodayStaysInAnotherYear()
    {
        show(u"Drink water"_s);
        for (int i = 0; i < 11; ++i)
            press("habitMonthBefore");
        QTRY_COMPARE(text("habitMonthName"), u"December 2025"_s);
        press("habitMore");
        QTRY_COMPARE(text("habitTodayValue"), u"1"_s);
        QCOMPARE(dayOf(u"Drink water"_s).value, 1.0);
    }

    void notesAreEditedWhereTheyStand()
    {
        show(u"Stretch"_s);
        const int day = 20261119;
        KWHabitCheckHelper checks{m_client->kit()};
        const auto stored = [&] {
            const KWHabit &habit = *m_client->kit().context().find<KWHabit>(habitID(u"Stretch"_s));
            const KWHabitRecord *note = habit.recordAtDateStamp(day);
            return note ? (*note)->content : QString{};
        };
        QVERIFY(checks.setNote(habitID(u"Stretch"_s), day, u"Short"_s));
        QTRY_COMPARE(noteRows().size(), 1);
        HabitNoteRow &row = *noteRows().first();
        QCOMPARE(row.accessibleName(), u"Thu 19 Nov: Short"_s);
        auto &field = *row.findChild<HabitNoteEdit *>();
        row.setFocus();
        m_client->press(Qt::Key_Return);
        QVERIFY(field.hasFocus());
        typeInto(field, u"Lost"_s);
        m_client->press(Qt::Key_Escape);
        QCOMPARE(stored(), u"Short"_s);
        QVERIFY(row.hasFocus() && !row.isEditing());

        QTest::mouseDClick(&row, Qt::LeftButton);
        typeInto(field, u"Long"_s);
        QVERIFY(checks.setNote(habitID(u"Stretch"_s), day, u"From elsewhere"_s));
        QTRY_COMPARE(row.accessibleName(), u"Thu 19 Nov: From elsewhere"_s);
        QCOMPARE(field.toPlainText(), u"Long"_s);
        m_client->press(Qt::Key_Return);
        QCOMPARE(stored(), u"Long"_s);
        takeBack();
        QCOMPARE(stored(), u"From elsewhere"_s);

        QTest::mouseDClick(&row, Qt::LeftButton);
        typeInto(field, u"Kept"_s);
        goToHabit(u"Drink water"_s);
        QCOMPARE(stored(), u"Kept"_s);
        show(u"Stretch"_s);
        QTRY_COMPARE(noteRows().size(), 1);
        noteRows().first()->setFocus();
        m_client->press(Qt::Key_Delete);
        QVERIFY(stored().isEmpty());
        QVERIFY2(toastText().contains(u"Note on “Stretch” removed"_s), qPrintable(toastText()));
        QTRY_VERIFY(month().hasFocus());
    }

    void anArchivedHabitIsReadAndRestored()
    {
        show(u"Stretch"_s);
        QVERIFY(!m_client->find<QWidget>("restoreHabit").isVisible());
        chooseOfHabit(u"Archive"_s);
        QTRY_VERIFY(!shownHabits().contains(u"Stretch"_s));
        m_client->rooms().application().open({.links = {u"orvane://habit/"_s + habitID(u"Stretch"_s)}});
        QTRY_COMPARE(text("habitName"), u"Stretch"_s);
        QTRY_VERIFY(m_client->find<QWidget>("restoreHabit").isVisible());
        QVERIFY(!m_client->find<QWidget>("habitToday").isVisible());
        month().setCurrentIndex(days().indexOf(days().today()));
        month().setFocus();
        m_client->press(Qt::Key_Return);
        QVERIFY(!isOpen("habitCheckIn"));
        press("restoreHabit");
        QVERIFY(!habit(u"Stretch"_s).isArchived);
    }
};

ORVANE_TEST(HabitDetailView_test)
#include "HabitDetailView_test.moc"
