#pragma once

#include "app/AccountManagerPort.h"
#include "app/KWDelayDeleteManager.h"
#include "app/KWSignificantTimeChangeObserver.h"
#include "app/KWUserNotificationHandler.h"
#include "app/LinkOpener.h"
#include "app/RunningApplication.h"
#include "app/UserNotificationShares.h"
#include "app/ports/LoginItemPort.h"
#include "calendar/KWRepeatInstanceService.h"
#include "calendar/OccurrencesAhead.h"
#include "calendar/subscriptions/CalSubscriptionService.h"
#include "capture/NewTaskService.h"
#include "client/FocusRooms.h"
#include "habits/HabitDayWatch.h"
#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "model/store/KWAttachmentService.h"
#include "views/alerts/AlertPresenter.h"
#include "views/focus/FocusWindowController.h"
#include "views/main/ApplicationCommands.h"
#include "views/main/MainWindowController.h"
#include "views/menu/MainMenu.h"
#include "views/preferences/PreferencesWindowController.h"
#include "views/quickadd/QuickAddController.h"
#include "views/statusitem/StatusItem.h"
#include "views/web/KWWebViewController.h"
#include "views/welcome/WelcomeWindowController.h"

class OrvaneKit;

/// What the rooms use of the desktop; a service that is not named is not there.
struct DesktopServices {
    RelaunchPort &relaunch = absent<RelaunchPort>();
    LoginItemPort &loginItem = absent<LoginItemPort>();
    UserNotificationCenterPort &notifications = absent<UserNotificationCenterPort>();
    DockPort &dock = absent<DockPort>();
    StatusAreaPort &statusArea = absent<StatusAreaPort>();
    FeedDownloadPort &feeds = absent<FeedDownloadPort>();
    FocusSoundPort &focusSound = absent<FocusSoundPort>();
    MailPort &mail = absent<MailPort>();
    WebPane::Plugin webPages = [] { return nullptr; };
    /// The zone of the system is in force, and dates follow it; not one that was given for this run.
    bool followsSystemZone = true;
};

/// Every room of the client over one open data folder, put together once, each in the order in which
/// the ones below need it. Main thread.
class DesktopRooms {
public:
    DesktopRooms(OrvaneKit &kit, CXClock &clock, DesktopServices services = {});
    /// Carries out the deletes that can still be undone, and takes messages back.
    ~DesktopRooms();

    KWProjectListPresenter &sidebar() { return m_sidebar; }
    NewTaskService &newTasks() { return m_newTasks; }
    CalSubscriptionService &calendars() { return m_calendars; }
    MainMenu &menu() { return m_menu; }
    KWDelayDeleteManager &deletes() { return m_deletes; }
    MainWindowController &mainWindow() { return m_mainWindow; }
    PreferencesWindowController &preferences() { return m_preferences; }
    QuickAddController &quickAdd() { return m_quickAdd; }
    StatusItem &statusItem() { return m_statusItem; }
    FocusRooms &focus() { return m_focus; }
    FocusWindowController &focusWindow() { return m_focusWindow; }
    WelcomeWindowController &welcomeWindow() { return m_welcomeWindow; }
    RunningApplication &application() { return m_application; }

private:
    class Counts : public ListCountsPort {
    public:
        explicit Counts(KWProjectListPresenter &sidebar) : m_sidebar(sidebar) {}
        void clear() override { m_sidebar.clear(); }

    private:
        KWProjectListPresenter &m_sidebar;
    };
    class Attachments : public AttachmentsPort {
    public:
        explicit Attachments(OrvaneKit &kit);
        void processLeftFromLastRun() override { m_service.removeUnused(); }

    private:
        KWAttachmentService m_service;
    };
    class HabitDays : public DailyCheckPort {
    public:
        explicit HabitDays(OrvaneKit &kit) : m_watch(kit) {}
        void run() override { m_watch.dailyCheck(); }

    private:
        HabitDayWatch m_watch;
    };
    class ThemeSchedule : public ThemePort {
    public:
        void autoSwitchDarkIfNeeded() override;
    };
    class TopWindows : public WindowsPort {
    public:
        void closeAllOthers() override;
        void bringToFront(const QString &activationToken) override;
    };

    AppPorts ports();
    void connectStatusItem();
    void connectFocus();
    void decideAtTheLastWindow();

    KWRepeatInstanceService m_repeats;
    OccurrencesAhead m_occurrencesAhead;
    KWProjectListCountFetcher m_countFetcher;
    KWProjectListPresenter m_sidebar;
    KWTaskListService m_tasks;
    NewTaskService m_newTasks;
    CalSubscriptionService m_calendars;
    AccountManagerPort m_account;
    Attachments m_attachments;
    HabitDays m_habitDays;
    Counts m_counts;
    ThemeSchedule m_theme;
    MainMenu m_menu;
    PreferencesWindowController m_preferences;
    TopWindows m_windows;
    KWDelayDeleteManager m_deletes;
    AlertPresenter m_alerts;
    UserNotificationShares m_notificationShares;
    FocusRooms m_focus;
    FocusWindowController m_focusWindow;
    WebServices m_web;
    MainWindowController m_mainWindow;
    WelcomeWindowController m_welcomeWindow;
    KWSignificantTimeChangeObserver m_timeChanges;
    SignificantTimeChangePort &m_significantTimeChange;
    KWUserNotificationHandler m_reminders;
    DockPort &m_dock;
    ApplicationCommands m_commands;
    StatusItem m_statusItem;
    QuickAddController m_quickAdd;
    LinkOpener m_links;
    RunningApplication m_application;
    QObject m_lastWindow; // what hears of it goes first
};
