#pragma once

#include "app/AppPorts.h"
#include "app/LaunchRequest.h"

class Session;

/// Brings the program up, once, in an order on which the rooms rely. Main thread.
class StartupSequence {
public:
    StartupSequence(AppPorts ports, Session &session);

    void handleFinishLaunching(const LaunchRequest &launch);

private:
    void setUpShortcuts();
    void startSoftwareUpdate();
    void handleLaunchHelperIfNeeded(const LaunchRequest &launch);
    void enterSession(const LaunchRequest &launch);

    AppPorts m_ports;
    Session &m_session;
};
