#pragma once

#include "app/LaunchRequest.h"
#include "app/Session.h"
#include "app/StartupSequence.h"

/// The program from its launch on: the start, and what later starts ask for. Main thread.
class RunningApplication {
public:
    RunningApplication(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus, AppPorts ports);

    /// Starts, and opens the links of the launch.
    void handleFinishLaunching(const LaunchRequest &launch);
    /// A later start of the program handed its request over: shows the window and opens the links.
    void open(const LaunchRequest &request);

    Session &session() { return m_session; }

private:
    void openLinks(const QStringList &links);

    LinksPort &m_links;
    Session m_session;
    StartupSequence m_startup;
};
