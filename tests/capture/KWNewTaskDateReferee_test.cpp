#include "capture/KWNewTaskDateReferee.h"

#include "model/events/NotificationNames.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

KWTaskDateTimeReminderModel modelOn(const char *localTime, bool hasTime = true)
{
    KWTaskDateTimeReminderModel model;
    model.startDateTime = KWDateTime{at(localTime), hasTime};
    return model;
}

} // namespace

class KWNewTaskDateReferee_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    KWNotificationCenter m_center;
    KWTaskDefaultConfiguration m_configuration;
    KWNewTaskDateReferee m_dates{m_clock, m_center, [this] { return m_configuration; }};

private Q_SLOTS:
    void initTestCase()
    {
        m_configuration.dateOffset = days{1};
        m_configuration.reminders = {CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Minutes, 10)};
        m_configuration.allDayReminders = {
            CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Days, 1, 9h)};
    }

    void decidesTheDateByPrecedence()
    {
        const auto winner = [this] { return m_dates.finalWithUsesDefault(true).startDateTime->date; };
        QCOMPARE(m_dates.finalWithUsesDefault(false), KWTaskDateTimeReminderModel{});
        QCOMPARE(winner(), at("2030-05-02 00:00"));
        m_dates.setPresetDay(m_clock.today() + days{2});
        QCOMPARE(winner(), at("2030-05-03 00:00"));
        m_dates.setWithNlp(modelOn("2030-05-04 10:00"), u"on the 4th at 10"_s);
        QCOMPARE(winner(), at("2030-05-04 10:00"));
        m_dates.setManual(modelOn("2030-05-05 10:00"));
        QCOMPARE(winner(), at("2030-05-05 10:00"));

        m_dates.restoreToPreset();
        QCOMPARE(winner(), at("2030-05-04 10:00"));
        m_dates.setWithNlp(std::nullopt, {});
        m_dates.setManual(modelOn("2030-05-05 10:00"));
        m_dates.restoreToDefault();
        QCOMPARE(winner(), at("2030-05-02 00:00"));
        m_clock.advance(24h);
        m_center.post(KWNewDayComesNotification);
        QCOMPARE(winner(), at("2030-05-03 00:00"));
    }

    void givesDatesTheirReminders()
    {
        const auto fromText = [this](const KWTaskDateTimeReminderModel &model, const QString &text) {
            m_dates.setWithNlp(model, text);
            return m_dates.nlp()->alarmTriggers;
        };
        const KWTaskDateTimeReminderModel timed = modelOn("2030-05-04 10:00");
        const KWTaskDateTimeReminderModel allDay = modelOn("2030-05-04 00:00", false);
        QCOMPARE(fromText(timed, u"pay on the 4th at 10"_s), m_configuration.reminders);
        QCOMPARE(fromText(allDay, u"pay on the 4th"_s), m_configuration.allDayReminders);
        for (const QString &text : {u"Remind ME on the 4th"_s, u"4号提醒我"_s}) {
            QCOMPARE(fromText(timed, text), std::set{CXAlarmTrigger::onTime()});
            QCOMPARE(fromText(allDay, text), std::set{CXAlarmTrigger::onTime_AllDay()});
        }
        KWTaskDateTimeReminderModel named = timed;
        named.alarmTriggers = m_configuration.allDayReminders;
        QCOMPARE(fromText(named, u"remind me the day before"_s), named.alarmTriggers);

        m_dates.setPresetDay(m_clock.today());
        QCOMPARE(m_dates.preset()->alarmTriggers, m_configuration.allDayReminders);
    }
};

ORVANE_TEST(KWNewTaskDateReferee_test)
#include "KWNewTaskDateReferee_test.moc"
