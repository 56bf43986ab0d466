#pragma once

#include "corvexkit/time/CXClock.h"
#include "platform/Bus.h"

#include <QObject>

#include <memory>

class KWNotificationCenter;
class LogindManager;

/// Posts WorkspaceWillSleepNotification and WorkspaceDidWakeNotification as the system's login manager
/// tells of them: the signal PrepareForSleep of org.freedesktop.login1.Manager on the system bus (systemd,
/// org.freedesktop.login1(5)). Main thread.
class LogindSleepMonitor : public QObject {
public:
    /// How long start() leaves the start of the program alone.
    static constexpr std::chrono::milliseconds connectAfter{1000};

    /// `connector` connects to the bus when it is time; the system bus without one.
    LogindSleepMonitor(KWNotificationCenter &center, CXClock &clock,
                       BusConnector connector = QDBusConnection::systemBus);
    ~LogindSleepMonitor() override;

    /// Connects a moment later, when the first window is painted. Without a bus or a login manager a line
    /// goes into the log and nothing is posted.
    void start();

private:
    void connectToManager();
    void prepareForSleep(bool isAboutToSleep);

    KWNotificationCenter &m_center;
    CXClock &m_clock;
    BusConnector m_connector;
    ClockCall m_connecting;
    std::unique_ptr<LogindManager> m_manager;
};
