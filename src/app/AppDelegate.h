#pragma once

#include "app/KWBootingProtection.h"
#include "app/LaunchRequest.h"

#include <functional>
#include <vector>

class RunningApplication;

/// The life of the program: the guard before anything else, the launch, later requests, the end. `main`
/// makes one, calls applicationDidFinishLaunching() before the event loop runs, and
/// applicationWillTerminate() when it has ended. Main thread.
class AppDelegate {
public:
    /// Opens the data folder and puts the rooms together, after the guard has counted the launch: a
    /// crash in it counts too. None where that cannot be done and the program is to end.
    using BringUp = std::function<RunningApplication *()>;

    AppDelegate(CXClock &clock, KWUserDefaults &defaults, CrashProtectionAlert &alert, BringUp bringUp);

    void applicationDidFinishLaunching(const LaunchRequest &launch);
    void applicationWillTerminate() { m_bootingProtection.applicationWillTerminate(); }

    /// A later start of the program. Before the launch, and while an alert is up in its place, it waits.
    void open(const LaunchRequest &request);

private:
    void launch(const LaunchRequest &request);

    KWBootingProtection m_bootingProtection;
    BringUp m_bringUp;
    RunningApplication *m_running = nullptr;
    std::vector<LaunchRequest> m_waiting;
};
