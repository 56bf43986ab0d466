#pragma once

#include "app/DamagedStoreQuestion.h"
#include "cli/Invocation.h"
#include "client/DesktopRooms.h"
#include "client/ScriptingRooms.h"
#include "model/OrvaneKit.h"
#include "model/store/StoreCare.h"
#include "platform/DesktopNotifications.h"
#include "platform/FeedDownload.h"
#include "platform/LauncherBadge.h"
#include "platform/LoginItem.h"
#include "platform/LogindSleepMonitor.h"
#include "platform/OutsideChangeWatcher.h"
#include "platform/PhaseSound.h"
#include "platform/PortalAppearance.h"
#include "platform/StatusNotifierArea.h"
#include "platform/SystemTimeZoneWatch.h"
#include "platform/XdgMail.h"
#include "views/alerts/AlertPresenter.h"
#include "views/alerts/NotificationPanel.h"
#include "views/controls/RestingCaret.h"

#include <memory>

class FontWarmUp;
class SystemClock;

/// The client on an open data folder: the core library, the desktop services and the rooms.
class OpenClient {
public:
    /// Opens the folder, asking the person what to do where that cannot be done. None when the answer is
    /// to quit, or when it still cannot be done; standard error has the sentence then.
    static std::unique_ptr<OpenClient> open(const DataFolders &folders, const Invocation &invocation,
                                            SystemClock &clock, FontWarmUp &fonts, RelaunchPort &relaunch,
                                            ScriptingBus &scripting);

    DesktopRooms &rooms() { return m_rooms; }

    /// Gives the program's windows its icon, once the first one is painted.
    void setWindowIcon();
    /// Takes from the desktop whether it is dark or light and how large text is, once the first window is
    /// painted.
    void followDesktopAppearance();
    /// The person would rather see to what is not saved than end the program, or start it anew.
    void stay();
    /// Reads subscribed calendars, from the first paint on.
    void followCalendars();
    /// Checks the store if the last run broke off, and keeps its backups, from the first paint on.
    void lookAfterStore(LastRun lastRun);

private:
    void afterFirstPaint(std::function<void()> action);

    OpenClient(std::unique_ptr<OrvaneKit> kit, const Invocation &invocation, SystemClock &clock,
               RelaunchPort &relaunch, ScriptingBus &scripting);

    std::unique_ptr<OrvaneKit> m_kit;
    OutsideChangeWatcher m_outsideChanges;
    LogindSleepMonitor m_sleepMonitor;
    SystemTimeZoneWatch m_zoneWatch;
    LoginItem m_loginItem;
    PortalAppearance m_appearance;
    NotificationPanel m_panel;
    DesktopNotifications m_notifications;
    LauncherBadge m_badge;
    StatusNotifierArea m_statusArea;
    FeedDownload m_feeds;
    PhaseSound m_focusSound;
    XdgMail m_mail;
    RestingCaret m_caret;
    DesktopRooms m_rooms;
    AlertPresenter m_alerts;
    DataCare m_dataCare;
    DamagedStoreQuestion m_damage;
    StoreCare m_storeCare;
    ScriptingRooms m_scripting;
};
