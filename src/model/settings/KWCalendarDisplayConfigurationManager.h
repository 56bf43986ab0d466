#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWCalendarDisplayConfigurationModel.h"

class KWCoreDataManager;
class KWNotificationCenter;

/// What the calendar of the account shows. Main thread.
class KWCalendarDisplayConfigurationManager {
public:
    KWCalendarDisplayConfigurationManager(KWCoreDataManager &manager, KWNotificationCenter &center,
                                          QString userID);

    /// What was saved, or the values it comes with.
    KWCalendarDisplayConfigurationModel configuration() const;
    /// Saves it and posts "KWCalendarDisplayConfigurationDidChangeNotification".
    Result<void> save(const KWCalendarDisplayConfigurationModel &configuration);
    /// Whether events of that subscribed calendar are shown. Posts
    /// "KWCalSubDisplayStatusDidChangeNotification", too.
    Result<void> setShowsCalendar(bool shows, const QString &subscriptionID);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    QString m_userID;
};
