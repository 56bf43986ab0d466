#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/alarm/CXAlarmTrigger.h"
#include "model/records/KWConstants.h"

#include <chrono>
#include <optional>
#include <set>

class KWCoreDataManager;
class KWNotificationCenter;
class KWUserDefaults;
struct KWUserSettingsModel;

/// What a new task gets where nothing else decides.
struct KWTaskDefaultConfiguration {
    KWTaskPriority priority = KWTaskPriorityNone;
    std::optional<std::chrono::days> dateOffset; ///< days from today; nothing: no date
    std::set<CXAlarmTrigger> reminders;          ///< of a task with a time
    std::set<CXAlarmTrigger> allDayReminders;

    bool operator==(const KWTaskDefaultConfiguration &) const = default;
};

/// Keeps the configuration of the account: priority and date in the user defaults, reminders in the
/// user settings.
class KWTaskDefaultConfigurationManager {
public:
    static KWTaskDefaultConfiguration current(const KWUserDefaults &defaults,
                                              const KWUserSettingsModel &settings);
    /// Posts "KWTaskDefaultConfigurationChangedNotification". When the reminders cannot be saved, nothing is.
    static Result<void> save(const KWTaskDefaultConfiguration &configuration, const QString &userID,
                             KWCoreDataManager &manager, KWUserDefaults &defaults,
                             KWNotificationCenter &center);
};
