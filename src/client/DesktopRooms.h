#pragma once

#include "app/AccountManagerPort.h"
#include "app/RunningApplication.h"
#include "capture/NewTaskService.h"
#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "views/main/MainWindowController.h"
#include "views/welcome/WelcomeWindowController.h"

class OrvaneKit;

/// Every room of the client over one open data folder, put together once, each in the order in which
/// the ones below need it. Main thread.
class DesktopRooms {
public:
    DesktopRooms(OrvaneKit &kit, CXClock &clock);

    KWProjectListPresenter &sidebar() { return m_sidebar; }
    MainWindowController &mainWindow() { return m_mainWindow; }
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
    class ThemeSchedule : public ThemePort {
    public:
        void autoSwitchDarkIfNeeded() override;
    };
    class TopWindows : public WindowsPort {
    public:
        void bringToFront(const QString &activationToken) override;
    };

    AppPorts ports();

    KWProjectListCountFetcher m_countFetcher;
    KWProjectListPresenter m_sidebar;
    KWTaskListService m_tasks;
    NewTaskService m_newTasks;
    AccountManagerPort m_account;
    Counts m_counts;
    ThemeSchedule m_theme;
    TopWindows m_windows;
    MainWindowController m_mainWindow;
    WelcomeWindowController m_welcomeWindow;
    RunningApplication m_application;
};
