#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/records/KWTaskDateTimeReminderModel.h"
#include "model/settings/KWTaskDefaultConfiguration.h"

#include <functional>

/// Decides the date of a new task: the hand's choice, else the text's, else the view's, else, when
/// asked for, the user's default. Dates without reminders get the default ones where they are not
/// chosen by hand. The defaults follow the new day and changes of the default configuration. Lives as
/// long as its add field; main thread only.
class KWNewTaskDateReferee {
public:
    /// Answers the user's default configuration as it is now.
    using CurrentDefaults = std::function<KWTaskDefaultConfiguration()>;

    KWNewTaskDateReferee(const CXClock &clock, KWNotificationCenter &center, CurrentDefaults current);
    KWNewTaskDateReferee(const KWNewTaskDateReferee &) = delete;
    KWNewTaskDateReferee &operator=(const KWNewTaskDateReferee &) = delete;

    /// What was recognised in the typed text, or nothing. Where the text asks to be reminded and says not
    /// when, the reminder is at the time itself.
    void setWithNlp(std::optional<KWTaskDateTimeReminderModel> model, const QString &from);
    void setManual(std::optional<KWTaskDateTimeReminderModel> model) { m_manual = std::move(model); }
    void setPreset(std::optional<KWTaskDateTimeReminderModel> model);
    /// The preset of a view that stands for a day.
    void setPresetDay(Day day);
    /// Forgets the hand's choice.
    void restoreToPreset() { m_manual.reset(); }
    /// Forgets the hand's choice and the preset.
    void restoreToDefault();

    const std::optional<KWTaskDateTimeReminderModel> &manual() const { return m_manual; }
    const std::optional<KWTaskDateTimeReminderModel> &nlp() const { return m_nlp; }
    const std::optional<KWTaskDateTimeReminderModel> &preset() const { return m_preset; }

    /// A copy of the winner. An empty one where nothing else decides and the default is not asked for.
    KWTaskDateTimeReminderModel finalWithUsesDefault(bool usesDefault);

private:
    const KWTaskDateTimeReminderModel &defaults();

    const CXClock &m_clock;
    CurrentDefaults m_current;
    std::optional<KWTaskDateTimeReminderModel> m_manual;
    std::optional<KWTaskDateTimeReminderModel> m_nlp;
    std::optional<KWTaskDateTimeReminderModel> m_preset;
    std::optional<KWTaskDateTimeReminderModel> m_defaults; // built when first asked for
    KWNotificationCenter::Observation m_configurationChanged;
    KWNotificationCenter::Observation m_newDay;
};
