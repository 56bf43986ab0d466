#include "capture/KWNewTaskDateReferee.h"

#include "capture/ReminderPhrase.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/NotificationNames.h"

KWNewTaskDateReferee::KWNewTaskDateReferee(const CXClock &clock, KWNotificationCenter &center,
                                           CurrentDefaults current)
    : m_clock(clock), m_current(std::move(current))
{
    const auto rebuild = [this](const KWNotification &) { m_defaults.reset(); };
    m_configurationChanged = center.addObserver(KWTaskDefaultConfigurationChangedNotification, rebuild);
    m_newDay = center.addObserver(KWNewDayComesNotification, rebuild);
}

void KWNewTaskDateReferee::setWithNlp(std::optional<KWTaskDateTimeReminderModel> model, const QString &from)
{
    m_nlp = std::move(model);
    if (!m_nlp) return;
    const bool usesDefaultReminders = m_nlp->presetDefaultRemindersIfNeeded(m_current());
    if (usesDefaultReminders && namesReminder(from))
        m_nlp->alarmTriggers = {m_nlp->isAllDay() ? CXAlarmTrigger::onTime_AllDay()
                                                  : CXAlarmTrigger::onTime()};
}

void KWNewTaskDateReferee::setPreset(std::optional<KWTaskDateTimeReminderModel> model)
{
    m_preset = std::move(model);
    if (m_preset) m_preset->presetDefaultRemindersIfNeeded(m_current());
}

void KWNewTaskDateReferee::setPresetDay(Day day)
{
    KWTaskDateTimeReminderModel model;
    model.startDateTime = KWDateTime::dateTimeWithDate(m_clock.zone().startOfDay(day), false);
    setPreset(std::move(model));
}

void KWNewTaskDateReferee::restoreToDefault()
{
    m_manual.reset();
    m_preset.reset();
}

KWTaskDateTimeReminderModel KWNewTaskDateReferee::finalWithUsesDefault(bool usesDefault)
{
    for (const auto *each : {&m_manual, &m_nlp, &m_preset})
        if (*each) return **each;
    return usesDefault ? defaults() : KWTaskDateTimeReminderModel{};
}

const KWTaskDateTimeReminderModel &KWNewTaskDateReferee::defaults()
{
    if (!m_defaults) m_defaults.emplace().presetDefaultDateIfNeeded(m_current(), m_clock);
    return *m_defaults;
}
