#include "model/settings/KWTaskDefaultConfiguration.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWUserSettings.h"
#include "model/settings/KWUserDefaults.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

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

QStringList representations(const std::set<CXAlarmTrigger> &triggers)
{
    QStringList texts;
    for (const CXAlarmTrigger &each : triggers)
        texts.append(each.representation());
    return texts;
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

Result<void> KWTaskDefaultConfigurationManager::save(const KWTaskDefaultConfiguration &configuration,
                                                     const QString &userID, KWCoreDataManager &manager,
                                                     KWUserDefaults &defaults, KWNotificationCenter &center)
{
    const Result<void> saved =
        KWCoreDataService{manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWUserSettings *settings = context.find<KWUserSettings>(userID);
            if (!settings) return Error{storeText("There is no such account any more.")};
            settings->set(&KWUserSettingsModel::defaultReminderRules,
                          representations(configuration.reminders));
            settings->set(&KWUserSettingsModel::allDayReminders,
                          representations(configuration.allDayReminders));
            return {};
        });
    if (!saved) return saved;
    defaults.set(Settings::newTaskPriority, int(configuration.priority));
    const int days = configuration.dateOffset ? int(configuration.dateOffset->count()) : -1;
    defaults.set(Settings::newTaskDateOffset, days);
    center.post(KWTaskDefaultConfigurationChangedNotification);
    return saved;
}
