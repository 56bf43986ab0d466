#pragma once

#include "app/LaunchGuard.h"
#include "app/LaunchRequest.h"
#include "app/Session.h"
#include "app/StartupSequence.h"

#include <vector>

/// The life of the program: the guard before the start, the start, later requests, the end.
/// `main` makes one, calls applicationDidFinishLaunching() once the event loop is about to run, and
/// applicationWillTerminate() when it has ended. Main thread.
class AppDelegate {
public:
    AppDelegate(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus, KWUserDefaults &defaults,
                CrashProtectionAlert &alert, AppPorts ports);

    void applicationDidFinishLaunching(const LaunchRequest &launch);
    void applicationWillTerminate() { m_guard.applicationWillTerminate(); }

    /// A later start of the program handed its request over: shows the window and opens the links. While
    /// the crash-protection alert is up this waits for the launch.
    void open(const LaunchRequest &request);

    Session &session() { return m_session; }

private:
    void launch(const LaunchRequest &request);
    void openLinks(const QStringList &links);

    LinksPort &m_links;
    LaunchGuard m_guard;
    Session m_session;
    StartupSequence m_startup;
    bool m_isLaunched = false;
    std::vector<LaunchRequest> m_waiting;
};
