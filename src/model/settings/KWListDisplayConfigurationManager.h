#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWListDisplayConfigurationModel.h"
#include "model/records/KWListIdentifier.h"

class KWCoreDataManager;
class KWNotificationCenter;
class ObjectContext;

/// How the account shows each of its lists. Main thread.
class KWListDisplayConfigurationManager {
public:
    KWListDisplayConfigurationManager(KWCoreDataManager &manager, KWNotificationCenter &center,
                                      QString userID);

    /// What was saved for the list, or the values it comes with: completed tasks are shown as in all lists.
    KWListDisplayConfigurationModel configuration(const KWListIdentifier &list) const;
    /// The same, on the thread of the context.
    static KWListDisplayConfigurationModel configuration(const KWListIdentifier &list, const QString &userID,
                                                         ObjectContext &context);
    /// Saves how the list of the configuration is shown; posts
    /// "KWListDisplayConfigurationDidChangeNotification" with its "listID".
    Result<void> save(const KWListDisplayConfigurationModel &configuration);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    QString m_userID;
};
