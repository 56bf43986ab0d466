#pragma once

#include "corvexkit/time/CXClock.h"
#include "platform/Bus.h"

#include <QFileSystemWatcher>
#include <QObject>

#include <functional>
#include <memory>

class KWNotificationCenter;
class TimeDateProperties;

/// Posts SystemTimeZoneDidChangeNotification when the system's zone becomes another one: it hears the
/// properties of org.freedesktop.timedate1 on the system bus (systemd, org.freedesktop.timedate1(5)) and
/// watches the file that names the zone (localtime(5)), which tools may change without that service. Main
/// thread.
class SystemTimeZoneWatch : public QObject {
public:
    /// Reads the zone again and tells whether it is another one now. With a zone of its own, from TZ or
    /// the command line, a clock says no.
    using Refresh = std::function<bool()>;

    /// How long start() leaves the start of the program alone.
    static constexpr std::chrono::milliseconds connectAfter{1000};

    SystemTimeZoneWatch(KWNotificationCenter &center, CXClock &clock, Refresh refresh,
                        BusConnector connector = QDBusConnection::systemBus,
                        QString zoneFile = QStringLiteral("/etc/localtime"));
    ~SystemTimeZoneWatch() override;

    /// Watches the file at once, and connects to the bus a moment later, when the first window is painted.
    /// Without a bus a line goes into the log.
    void start();

private:
    void watchFile();
    void connectToService();
    void check();

    KWNotificationCenter &m_center;
    CXClock &m_clock;
    Refresh m_refresh;
    BusConnector m_connector;
    QString m_zoneFile;
    QFileSystemWatcher m_watcher;
    ClockCall m_connecting;
    std::unique_ptr<TimeDateProperties> m_service;
};
