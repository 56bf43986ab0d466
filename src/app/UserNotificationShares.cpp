#include "app/UserNotificationShares.h"

class UserNotificationShares::Share : public UserNotificationCenterPort {
public:
    explicit Share(UserNotificationShares &all) : m_all(all) {}

    void show(const UserNotification &notification) override
    {
        m_all.m_owners[notification.identifier] = this;
        m_all.m_center.show(notification);
    }
    void withdraw(const QString &identifier) override
    {
        m_all.m_owners.remove(identifier);
        m_all.m_center.withdraw(identifier);
    }

private:
    UserNotificationShares &m_all;
};

UserNotificationShares::UserNotificationShares(UserNotificationCenterPort &center) : m_center(center)
{
    m_center.onResponse = [this](const UserNotificationCenterPort::Response &response) {
        const Share *owner = m_owners.value(response.identifier);
        if (owner && owner->onResponse) owner->onResponse(response);
    };
    m_center.onClosed = [this](const QString &identifier) {
        const Share *owner = m_owners.take(identifier);
        if (owner && owner->onClosed) owner->onClosed(identifier);
    };
}

UserNotificationShares::~UserNotificationShares()
{
    m_center.onResponse = {};
    m_center.onClosed = {};
}

UserNotificationCenterPort &UserNotificationShares::makeShare()
{
    return *m_shares.emplace_back(std::make_unique<Share>(*this));
}
