#pragma once

#include "model/store/KWCoreDataManager.h"

#include <QHash>

#include <optional>

/// What others see of a person.
struct PublicUserProfile {
    QString name;
    QString avatar; ///< path or URL of the picture, empty for none
};

/// The people of shared lists and teams by their server id, and the account itself. Read once and kept
/// true. Main thread.
class KWPublicUserProfileManager {
public:
    KWPublicUserProfileManager(KWCoreDataManager &manager, QString userID);

    /// Nothing for somebody unknown.
    std::optional<PublicUserProfile> profile(std::int64_t userServerID);

private:
    void read();

    KWCoreDataManager &m_manager;
    QString m_userID;
    std::optional<QHash<std::int64_t, PublicUserProfile>> m_profiles; // none: to be read
    KWEventBus::Registration m_registration;
};
