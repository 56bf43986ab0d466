#pragma once

#include "app/AppPorts.h"
#include "app/DayClock.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"

#include <vector>

/// From signing in to signing out: brings the rooms up and down in their order, keeps the clocks of the
/// day running in between, and keeps the badge and the menus true. Signed out there is the welcome window
/// alone, and no timer. Main thread.
class Session {
public:
    Session(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus, AppPorts ports);

    /// From now on the notifications of account, sync, settings, wake-up and changed records come here.
    void observe();

    /// Announces the account that is signed in already, which leads to userDidSignIn().
    void notifyUserSignIn();
    void userDidSignIn();
    void userDidSignOut();
    void syncDidBatchPull() { refreshBadgeAndMenus(); }
    void computerDidAwake();
    /// The wall shows another hour, maybe another day.
    void systemTimeZoneDidChange();

    bool isSignedIn() const { return m_ports.account.currentUser().has_value(); }
    /// Shows the window that belongs to the state of the session and brings the program to the front.
    void showWindow(const QString &activationToken);

    /// Refreshes the status item with each second of a focus session and each change of its state. The
    /// session has the seconds told: a timer of our own would wake the computer a second time.
    void startSecondLevelTimer();
    void stopSecondLevelTimer() { m_secondLevelTimer.clear(); }

    /// Counts anew, shows the number in the dock, and after that the state in the status item.
    void refreshBadge();
    void refreshStatusItem() { m_ports.statusBarItem.refresh(); }

    /// The desktop started the program with its session, or it was started to add a task: signing in opens no
    /// window.
    bool isLaunchedAsLoginItem() const { return m_isLaunchedAsLoginItem; }
    void setLaunchedAsLoginItem(bool isLaunchedAsLoginItem)
    {
        m_isLaunchedAsLoginItem = isLaunchedAsLoginItem;
    }

    /// Started that way, and no window but that for a task has been asked for since.
    bool isInBackground() const { return m_isInBackground; }

    const DayClock &dayClock() const { return m_dayClock; }

private:
    void bringUpAccount(const KWUserModel &user);
    void bringUpSurfaces();
    void recordsDidChange(const StoreChange &change);
    void refreshBadgeAndMenus();

    KWNotificationCenter &m_center;
    KWEventBus &m_bus;
    AppPorts m_ports;
    DayClock m_dayClock;
    std::vector<KWNotificationCenter::Observation> m_secondLevelTimer;
    bool m_isLaunchedAsLoginItem = false;
    bool m_isInBackground = false;
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
