#pragma once

#include "app/ports/UserNotificationPorts.h"

#include <QHash>

#include <memory>
#include <vector>

/// Parts one centre of messages among several services: each hears what becomes of its own messages.
/// Main thread.
class UserNotificationShares {
public:
    /// `center` outlives it.
    explicit UserNotificationShares(UserNotificationCenterPort &center);
    ~UserNotificationShares();

    /// A centre for one service; lives as long as this.
    UserNotificationCenterPort &makeShare();

private:
    class Share;

    UserNotificationCenterPort &m_center;
    std::vector<std::unique_ptr<Share>> m_shares;
    QHash<QString, Share *> m_owners; // by identifier, of what is shown
};
