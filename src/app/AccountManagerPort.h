#pragma once

#include "app/ports/AccountPorts.h"
#include "model/account/KWAccountManager.h"

/// The account as the session sees it, from the account manager.
class AccountManagerPort final : public AccountPort {
public:
    explicit AccountManagerPort(KWAccountManager &manager) : m_manager(manager) {}
    void refreshCurrentUser() override { m_manager.refreshCurrentUser(); }
    const std::optional<KWUserModel> &currentUser() const override { return m_manager.currentUser(); }

private:
    KWAccountManager &m_manager;
};
