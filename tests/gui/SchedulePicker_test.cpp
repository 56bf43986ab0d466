#include "views/datepicker/SchedulePicker.h"

#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "model/store/KWTaskEditor.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

/// A task is scheduled by keyboard, in the real window.
class SchedulePicker_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    QString m_taskID;

    KWTaskModel task() { return m_client->kit().context().find<KWTask>(m_taskID)->model(); }
    SchedulePicker *picker() { return m_client->window()->findChild<SchedulePicker *>(); }
    template <class Widget>
    Widget &in(const char *name)
    {
        auto *found = picker()->findChild<Widget *>(QLatin1StringView{name});
        if (!found) qFatal("there is no %s", name);
        return *found;
    }
    void open()
    {
        QTest::keyClick(&m_client->find<QWidget>("detailDate"), Qt::Key_Return);
        QVERIFY(picker());
    }
    void press(const char *widget, Qt::Key key) { QTest::keyClick(&in<QWidget>(widget), key); }
    void typeInto(const char *field, const QString &text)
    {
        in<QLineEdit>(field).setFocus();
        in<QLineEdit>(field).selectAll();
        QTest::keyClicks(&in<QLineEdit>(field), text);
    }
    void chooseZone(const QString &typed)
    {
        press("zone", Qt::Key_Space);
        auto *field = in<QWidget>("zone").findChild<QLineEdit *>(u"choiceField"_s);
        QVERIFY(field);
        QTest::keyClicks(field, typed);
        QTest::keyClick(field, Qt::Key_Return);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void gone()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!picker());
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        m_client->openList(u"Inbox"_s);
        m_taskID = m_client->rooms().newTasks().add(u"Bake a cake"_s)->sid;
        m_client->find<TaskListView>("taskList").selectTask(m_taskID);
        open();
    }
    void cleanup() { m_client.reset(); }

    void tabFollowsTheEye()
    {
        typeInto("startTime", u"9:30"_s);
        QTest::keyClick(&in<QWidget>("startTime"), Qt::Key_Tab);
        QStringList names;
        const QWidget *control = &in<QWidget>("pickToday");
        do {
            if (control->focusPolicy() & Qt::TabFocus && control->isVisible() && !control->focusProxy())
                names.append(control->objectName());
            control = control->nextInFocusChain();
        } while (control != &in<QWidget>("pickToday"));
        QCOMPARE(names.join(u' '),
                 u"pickToday pickTomorrow pickNextWeek pickNoDate monthBefore monthAfter "
                 "qt_calendar_calendarview startTime endTime daysLater reminderMenu otherReminder repeat "
                 "cancelSchedule keepSchedule"_s);
    }

    void takesDayTimeEndReminderAndRepeat()
    {
        press("qt_calendar_calendarview", Qt::Key_Down); // from Saturday the 21st to the 28th
        typeInto("startTime", u"9:30"_s);
        typeInto("endTime", u"1h 30m"_s);
        typeInto("otherReminder", u"20 min"_s);
        in<QComboBox>("repeat").setFocus();
        press("repeat", Qt::Key_End); // a rule of one's own
        Q_EMIT in<QComboBox>("repeat").activated(in<QComboBox>("repeat").currentIndex());
        typeInto("repeatRule", u"every 2 weeks"_s);
        QCOMPARE(in<QLabel>("occurrences").text().count(u'·'), 5);
        QVERIFY(in<QLabel>("occurrences")
                    .text()
                    .startsWith(u"Every 2 weeks\nSat\u00a028\u00a0Nov · Sat\u00a012\u00a0Dec · "));
        verifyControlsHaveNames(*picker());
        press("repeatRule", Qt::Key_Return);
        gone();
        QCOMPARE(task().startDate, at("2026-11-28 09:30"));
        QCOMPARE(task().endDate, at("2026-11-28 11:00"));
        QVERIFY(task().reminders.contains(u"TRIGGER:-PT20M"_s));
        QVERIFY(task().repeatRule.contains(u"FREQ=WEEKLY;INTERVAL=2"));
        QCOMPARE(task().repeatFrom, CXRecurrenceFromDueDate);
        QTRY_COMPARE(m_client->find<QWidget>("detailDate").toolTip(), u"Every 2 weeks"_s);
        QVERIFY(m_client->window()->takeBack());
        QVERIFY(!task().startDate && task().repeatRule.isEmpty());
    }

    void saysWhatIsNoRuleAndLosesNothing()
    {
        press("qt_calendar_calendarview", Qt::Key_Down);
        in<QComboBox>("repeat").setCurrentIndex(in<QComboBox>("repeat").count() - 1);
        Q_EMIT in<QComboBox>("repeat").activated(in<QComboBox>("repeat").currentIndex());
        typeInto("repeatRule", u"FREQ=DAILY;COUNT=0"_s);
        press("repeatRule", Qt::Key_Return);
        QVERIFY(picker() && !task().startDate);
        QVERIFY(in<QLabel>("occurrences").isVisible() && in<QLabel>("occurrences").text().endsWith(u'.'));
        typeInto("repeatRule", u"FREQ=DAILY;COUNT=2"_s);
        press("repeatRule", Qt::Key_Return);
        gone();
        QCOMPARE(task().repeatRule, u"RRULE:FREQ=DAILY;INTERVAL=1;COUNT=2"_s);
    }

    void whatNeedsADayTakesTheOneThatIsMarked()
    {
        QVERIFY(!task().startDate);
        typeInto("otherReminder", u"2 days"_s);
        press("otherReminder", Qt::Key_Return);
        gone();
        QCOMPARE(task().startDate, at("2026-11-21 00:00"));
        QCOMPARE(task().reminders.size(), 1);
    }

    void pressBesideItKeepsWhatWasChosen()
    {
        typeInto("startTime", u"9:30"_s);
        QTest::mousePress(picker(), Qt::LeftButton, {}, QPoint{-20, -20});
        gone();
        QCOMPARE(task().startDate, at("2026-11-21 09:30"));
    }

    void escapeLeavesItAsItWas()
    {
        typeInto("startTime", u"9"_s);
        press("startTime", Qt::Key_Escape);
        gone();
        QVERIFY(!task().startDate);
    }

    void overwritesNothingThatWasChangedMeanwhile()
    {
        press("keepSchedule", Qt::Key_Space); // opened and kept: nothing is chosen
        gone();
        QVERIFY(!task().startDate);
        KWTaskEditor editor{m_client->kit().manager()};
        QVERIFY(editor.setDay(m_taskID, m_client->clock.today()));
        open();
        QVERIFY(editor.setDay(m_taskID, m_client->clock.today() + std::chrono::days{3}));
        in<QComboBox>("repeat").setCurrentIndex(1);
        Q_EMIT in<QComboBox>("repeat").activated(1);
        press("startTime", Qt::Key_Return);
        gone();
        QCOMPARE(task().startDate, at("2026-11-24 00:00"));
        QCOMPARE(task().repeatRule, u"RRULE:FREQ=DAILY;INTERVAL=1"_s);
    }

    void stepsTheTimeByAQuarter()
    {
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down})
            press("startTime", key);
        QCOMPARE(in<QLineEdit>("startTime").text(), u"09:00"_s);
        press("startTime", Qt::Key_Return);
        gone();
        QCOMPARE(task().startDate, at("2026-11-21 09:00"));
    }

    void choosesAZoneWhereThatIsWanted()
    {
        press("qt_calendar_calendarview", Qt::Key_Escape);
        gone();
        QVERIFY(m_client->kit().account().isSignedIn());
        KWUserSettings *settings = m_client->kit().context().fetch<KWUserSettings>({}).first();
        settings->set(&KWUserSettingsModel::isTimeZoneOptionEnabled, true);
        QVERIFY(m_client->kit().context().save());
        open();
        typeInto("startTime", u"9"_s);
        chooseZone(u"new yo"_s);
        QCOMPARE(in<QAbstractButton>("zone").text(), u"America/New York"_s);
        chooseZone(u"tokyo"_s);
        press("startTime", Qt::Key_Return);
        gone();
        QCOMPARE(task().startDate, at("2026-11-21 00:00"));
        QCOMPARE(task().timeZone, u"Asia/Tokyo"_s);
    }
};

ORVANE_TEST(SchedulePicker_test)
#include "SchedulePicker_test.moc"
