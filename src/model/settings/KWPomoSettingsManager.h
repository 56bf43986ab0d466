#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWPomoSettingsModel.h"

class KWCoreDataManager;
class KWNotificationCenter;

/// The longest Pomo, in minutes.
inline constexpr int MAX_POMO_DURATION_MINUTES = 180;

/// The focus settings of the account. Main thread.
class KWPomoSettingsManager {
public:
    KWPomoSettingsManager(KWCoreDataManager &manager, KWNotificationCenter &center, QString userID);

    /// What was saved, or the values it comes with. A stored number that cannot be (an older file, another
    /// client) counts as the one it comes with, and the log says so.
    KWPomoSettingsModel settings() const;
    /// Saves them and posts "KWPomoSettingsChangedNotification"; a number out of its range fails with a
    /// sentence and changes nothing.
    Result<void> save(const KWPomoSettingsModel &settings);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    QString m_userID;
};
