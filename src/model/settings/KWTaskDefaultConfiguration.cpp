#include "model/settings/KWTaskDefaultConfiguration.h"

#include "model/records/KWUserSettingsModel.h"
#include "model/settings/KWUserDefaults.h"

#include <algorithm>

namespace {

enum class TriggerDay { Timed, AllDay };

std::set<CXAlarmTrigger> triggers(const QStringList &representations, TriggerDay day)
{
    std::set<CXAlarmTrigger> set;
    for (const QString &each : representations) {
        const CXAlarmTrigger trigger =
            CXAlarmTrigger::triggerWithRepresentation(each, day == TriggerDay::AllDay);
        if (trigger.isValid()) set.insert(trigger);
    }
    return set;
}

} // namespace

KWTaskDefaultConfiguration KWTaskDefaultConfigurationManager::current(const KWUserDefaults &defaults,
                                                                      const KWUserSettingsModel &settings)
{
    KWTaskDefaultConfiguration configuration;
    const int priority = defaults.value(Settings::newTaskPriority);
    if (std::ranges::find(KWTaskPriorities, priority) != KWTaskPriorities.end())
        configuration.priority = KWTaskPriority(priority);
    if (const int offset = defaults.value(Settings::newTaskDateOffset); offset >= 0)
        configuration.dateOffset = std::chrono::days{offset};
    configuration.reminders = triggers(settings.defaultReminderRules, TriggerDay::Timed);
    configuration.allDayReminders = triggers(settings.allDayReminders, TriggerDay::AllDay);
    return configuration;
}
