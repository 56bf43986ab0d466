#include "capture/KWNewTaskDateReferee.h"
#include "capture/KWNewTaskPriorityReferee.h"
#include "capture/KWNewTaskProjectReferee.h"

#include "model/events/NotificationNames.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

KWTaskDateTimeReminderModel timedOn(const char *localTime)
{
    KWTaskDateTimeReminderModel model;
    model.startDateTime = KWDateTime{at(localTime), true};
    return model;
}

KWTaskDateTimeReminderModel allDayOn(const char *localTime)
{
    KWTaskDateTimeReminderModel model;
    model.startDateTime = KWDateTime{at(localTime), false};
    return model;
}

CXAlarmTrigger minutesBefore(int value)
{
    return CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Minutes, value);
}

} // namespace

class Referees_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    KWNotificationCenter m_center;
    KWTaskDefaultConfiguration m_configuration;

    KWNewTaskDateReferee makeDates()
    {
        return KWNewTaskDateReferee{m_clock, m_center, [this] { return m_configuration; }};
    }

private Q_SLOTS:
    void init();
    void decidesTheDateByPrecedence();
    void movesTheDefaultDateOn();
    void givesDatesTheirReminders();
    void handsOutCopies();
    void decidesThePriorityByPrecedence();
    void givesNotesNoPriority();
    void decidesTheListByPrecedence();
};

void Referees_test::init()
{
    m_clock.setNow(at("2030-05-01 09:00"));
    m_configuration = {};
    m_configuration.priority = KWTaskPriorityLow;
    m_configuration.dateOffset = days{1};
    m_configuration.reminders = {minutesBefore(10)};
    m_configuration.allDayReminders = {CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Days, 1, 9h)};
}

void Referees_test::decidesTheDateByPrecedence()
{
    KWNewTaskDateReferee dates = makeDates();
    const auto winner = [&dates] { return dates.finalWithUsesDefault(true).startDateTime->date; };
    QCOMPARE(dates.finalWithUsesDefault(false), KWTaskDateTimeReminderModel{});
    QCOMPARE(winner(), at("2030-05-02 00:00"));
    dates.setPresetDay(m_clock.today() + days{2});
    QCOMPARE(winner(), at("2030-05-03 00:00"));
    dates.setWithNlp(timedOn("2030-05-04 10:00"), u"on the 4th at 10"_s);
    QCOMPARE(winner(), at("2030-05-04 10:00"));
    dates.setManual(timedOn("2030-05-05 10:00"));
    QCOMPARE(winner(), at("2030-05-05 10:00"));

    dates.restoreToPreset();
    QCOMPARE(winner(), at("2030-05-04 10:00"));
    dates.setWithNlp(std::nullopt, {});
    QCOMPARE(winner(), at("2030-05-03 00:00"));
    dates.setManual(timedOn("2030-05-05 10:00"));
    dates.restoreToDefault();
    QCOMPARE(winner(), at("2030-05-02 00:00"));
    QCOMPARE(dates.finalWithUsesDefault(false), KWTaskDateTimeReminderModel{});
}

void Referees_test::movesTheDefaultDateOn()
{
    KWNewTaskDateReferee dates = makeDates();
    const auto byDefault = [&dates] { return dates.finalWithUsesDefault(true).startDateTime; };
    QCOMPARE(byDefault()->date, at("2030-05-02 00:00"));
    m_clock.advance(24h);
    QCOMPARE(byDefault()->date, at("2030-05-02 00:00"));
    m_center.post(KWNewDayComesNotification);
    QCOMPARE(byDefault()->date, at("2030-05-03 00:00"));
    m_configuration.dateOffset.reset();
    m_center.post(KWTaskDefaultConfigurationChangedNotification);
    QVERIFY(!byDefault());
}

void Referees_test::givesDatesTheirReminders()
{
    KWNewTaskDateReferee dates = makeDates();
    const auto fromText = [&dates](const KWTaskDateTimeReminderModel &model, const QString &text) {
        dates.setWithNlp(model, text);
        return dates.nlp()->alarmTriggers;
    };
    const KWTaskDateTimeReminderModel timed = timedOn("2030-05-04 10:00");
    const KWTaskDateTimeReminderModel allDay = allDayOn("2030-05-04 00:00");
    QCOMPARE(fromText(timed, u"pay on the 4th at 10"_s), m_configuration.reminders);
    QCOMPARE(fromText(allDay, u"pay on the 4th"_s), m_configuration.allDayReminders);
    for (const QString &text : {u"Remind ME on the 4th"_s, u"4号提醒我"_s}) {
        QCOMPARE(fromText(timed, text), std::set{CXAlarmTrigger::onTime()});
        QCOMPARE(fromText(allDay, text), std::set{CXAlarmTrigger::onTime_AllDay()});
    }
    KWTaskDateTimeReminderModel named = timed;
    named.alarmTriggers = {minutesBefore(5)};
    QCOMPARE(fromText(named, u"remind me 5 minutes before"_s), named.alarmTriggers);

    dates.setPresetDay(m_clock.today());
    QCOMPARE(dates.preset()->alarmTriggers, m_configuration.allDayReminders);
    dates.setManual(timed);
    QVERIFY(dates.finalWithUsesDefault(true).alarmTriggers.empty());
}

void Referees_test::handsOutCopies()
{
    KWNewTaskDateReferee dates = makeDates();
    dates.setWithNlp(timedOn("2030-05-04 10:00"), {});
    dates.finalWithUsesDefault(true).startDateTime.reset();
    QVERIFY(dates.finalWithUsesDefault(true).startDateTime);
}

void Referees_test::decidesThePriorityByPrecedence()
{
    KWNewTaskPriorityReferee referee{m_center, [this] { return m_configuration.priority; }};
    const auto winner = [&referee] { return referee.priority(NewTaskPlace::TaskList); };
    QCOMPARE(winner(), KWTaskPriorityLow);
    m_configuration.priority = KWTaskPriorityMedium;
    QCOMPARE(winner(), KWTaskPriorityLow);
    m_center.post(KWTaskDefaultConfigurationChangedNotification);
    QCOMPARE(winner(), KWTaskPriorityMedium);
    referee.setPreset(KWTaskPriorityHigh);
    QCOMPARE(winner(), KWTaskPriorityHigh);
    referee.setNlp(KWTaskPriorityNone);
    QCOMPARE(winner(), KWTaskPriorityNone);
    referee.setManual(KWTaskPriorityLow);
    QCOMPARE(winner(), KWTaskPriorityLow);
    referee.setManual(std::nullopt);
    referee.setNlp(std::nullopt);
    QCOMPARE(winner(), KWTaskPriorityHigh);
}

void Referees_test::givesNotesNoPriority()
{
    KWNewTaskPriorityReferee referee{m_center, [this] { return m_configuration.priority; }};
    referee.setManual(KWTaskPriorityHigh);
    QCOMPARE(referee.priority(NewTaskPlace::NotesList), KWTaskPriorityNone);
    QCOMPARE(referee.priority(NewTaskPlace::NotesFilter), KWTaskPriorityNone);
}

void Referees_test::decidesTheListByPrecedence()
{
    KWNewTaskProjectReferee referee;
    QCOMPARE(referee.projectID(), std::nullopt);
    referee.setPreset(u"preset"_s);
    QCOMPARE(referee.projectID(), u"preset"_s);
    referee.setNlp(u"text"_s);
    QCOMPARE(referee.projectID(), u"text"_s);
    referee.setManual(u"hand"_s);
    QCOMPARE(referee.projectID(), u"hand"_s);
    referee.setManual(std::nullopt);
    QCOMPARE(referee.projectID(), u"text"_s);
}

ORVANE_TEST(Referees_test)
#include "Referees_test.moc"
