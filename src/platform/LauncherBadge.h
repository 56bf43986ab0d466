#pragma once

#include "app/ports/WindowPorts.h"
#include "platform/Bus.h"

#include <memory>
#include <optional>

class KWAccountManager;
class KWCoreDataManager;
class KWUserDefaults;

/// The number on the program's icon in docks and task bars: the signal Update of the interface
/// com.canonical.Unity.LauncherEntry on the session bus (Launcher API), which most of them understand. It
/// counts in the background what the preference "badgeTypeShownInDock" selects, and the habits of today that
/// are open still, where Today shows habits. Nothing to count, and nobody signed in, shows no number; a count
/// that fails leaves the last one. Main thread.
class LauncherBadge final : public DockPort {
public:
    /// `connector` connects to the bus at the first number; the session bus without one.
    LauncherBadge(KWCoreDataManager &manager, KWAccountManager &account, KWUserDefaults &defaults,
                  BusConnector connector = QDBusConnection::sessionBus);

    /// Requests that come while it counts are joined into one more count.
    void refreshBadge(std::function<void()> whenShown) override;
    void clearBadge() override;

private:
    void count();
    void didCount(std::optional<int> number, int generation);
    void send(int number);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWUserDefaults &m_defaults;
    BusConnector m_connector;
    std::vector<std::function<void()>> m_waiting;  // for the next count
    std::vector<std::function<void()>> m_counting; // for the one that runs
    int m_generation = 0;                          // a count begun before the badge was cleared is dropped
    int m_shown = -1;                              // nothing was sent yet
    std::shared_ptr<int> m_life = std::make_shared<int>();
};
