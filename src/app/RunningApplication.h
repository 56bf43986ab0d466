#pragma once

#include "app/LaunchRequest.h"
#include "app/Session.h"
#include "app/StartupSequence.h"

/// The program from its launch on: the start, and what later starts ask for. Main thread.
class RunningApplication {
public:
    RunningApplication(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus, AppPorts ports);

    /// Starts, and does what the launch asks for.
    void handleFinishLaunching(const LaunchRequest &launch);
    /// A later start of the program handed its request over: shows the window that it needs and does what it
    /// asks for.
    void open(const LaunchRequest &request);

    Session &session() { return m_session; }

private:
    void carryOut(const LaunchRequest &request);

    LinksPort &m_links;
    MainMenuPort &m_mainMenu;
    QuickAddPort &m_quickAddWindow;
    Session m_session;
    StartupSequence m_startup;
};
