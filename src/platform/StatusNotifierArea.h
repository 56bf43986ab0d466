#pragma once

#include "app/ports/StatusAreaPort.h"
#include "corvexkit/time/CXClock.h"
#include "platform/Bus.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

class StatusNotifierWatcher;

/// The status area as the session bus tells of it: org.kde.StatusNotifierWatcher with a host registered
/// (StatusNotifierItem). Qt asks once for it and keeps the answer, so it must not be asked before. Main
/// thread.
class StatusNotifierArea final : public QObject, public StatusAreaPort {
public:
    /// The older kind of area (XEmbed) says nothing on the bus. Only X11 has it.
    enum class OlderKind { Possible, Impossible };
    /// After this, an area of the older kind counts as come, where it is possible, and Qt looks for it.
    static constexpr std::chrono::milliseconds patience{20'000};

    StatusNotifierArea(CXClock &clock, OlderKind olderKind,
                       BusConnector connector = QDBusConnection::sessionBus);
    ~StatusNotifierArea() override;

    /// Listens from now on; onAppeared is called from the event loop.
    void start();
    bool isThere() const override { return m_isThere; }

private:
    void ask();
    void appear();

    CXClock &m_clock;
    OlderKind m_olderKind;
    BusConnector m_connector;
    std::unique_ptr<StatusNotifierWatcher> m_watcher;
    QDBusServiceWatcher m_registration; // of the watcher
    ClockCall m_waiting;
    bool m_isThere = false;
};
