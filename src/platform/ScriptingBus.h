#pragma once

#include "platform/Bus.h"
#include "platform/Runner.h"
#include "platform/ScriptingObject.h"
#include "platform/ScriptingSignals.h"
#include "platform/SearchProvider.h"

#include <optional>

/// The objects through which other programs use this one, on the connection that has the program's name:
/// scripts, the search of GNOME Shell and KRunner. They are there before the name is, and answer nothing as
/// long as no store is open. Main thread.
class ScriptingBus {
public:
    /// `connector` connects to the bus when it is needed; the session bus without one.
    explicit ScriptingBus(BusConnector connector = QDBusConnection::sessionBus);
    ScriptingBus(const ScriptingBus &) = delete;
    ScriptingBus &operator=(const ScriptingBus &) = delete;
    ~ScriptingBus();

    /// Puts the objects on the bus. Where there is no bus nobody comes.
    void appear();

    /// From now on they answer, and tell what changes; all outlives what is between this and close().
    void open(const ScriptingRoom &room, OrvaneKit &kit, CXClock &clock);
    void close();

private:
    void send(const QString &signal, const QVariantList &arguments);

    BusConnector m_connector;
    bool m_isThere = false;
    ScriptingObject m_scripting;
    SearchProvider m_searchProvider;
    Runner m_runner;
    std::optional<ScriptingSignals> m_signals;
};
