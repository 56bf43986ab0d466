#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"

#include <functional>

class KWCoreDataManager;
class KWNotificationCenter;
class KWSmartProject;
struct KWUserSettingsModel;

/// Where the settings of one account are changed: each in one save, then announced. A value that cannot
/// be fails with a sentence and changes nothing. Main thread.
class AccountSettings {
public:
    AccountSettings(KWCoreDataManager &manager, KWNotificationCenter &center, QString userID);

    /// Takes what `edit` makes of the settings. Posts "KWUserSettingsDidChangeNotification",
    /// "KWTaskDefaultConfigurationChangedNotification" when new tasks get something else now, and
    /// "KWHabitSettingsChangedNotification" when habits are shown elsewhere now, or their day
    /// begins at another hour.
    Result<void> change(const std::function<void(KWUserSettingsModel &)> &edit);
    Result<void> updateTimeZoneOptionEnable(bool isEnabled);

    /// Posts "KWListDisplayConfigurationDidChangeNotification" with the "listID".
    Result<void> setSortType(KWTaskSortType sortType, const KWSmartProject &smartProject);
    /// Posts "KWSmartListDisplayStatusDidChangeNotification".
    Result<void> setVisibility(KWSmartProjectVisibility visibility, const KWSmartProject &smartProject);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    QString m_userID;
};
