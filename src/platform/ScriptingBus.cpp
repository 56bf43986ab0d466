#include "platform/ScriptingBus.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

ScriptingBus::ScriptingBus(BusConnector connector) : m_connector(std::move(connector)) {}

ScriptingBus::~ScriptingBus()
{
    if (!m_isThere) return;
    QDBusConnection bus = m_connector();
    for (const QString &each : {ScriptingObject::path, SearchProvider::path, Runner::path})
        bus.unregisterObject(each);
}

void ScriptingBus::appear()
{
    QDBusConnection bus = m_connector();
    if (!bus.isConnected()) return;
    m_isThere = bus.registerVirtualObject(ScriptingObject::path, &m_scripting);
    bus.registerObject(SearchProvider::path, &m_searchProvider, QDBusConnection::ExportScriptableSlots);
    bus.registerObject(Runner::path, &m_runner, QDBusConnection::ExportScriptableSlots);
}

void ScriptingBus::open(const ScriptingRoom &room, OrvaneKit &kit, CXClock &clock)
{
    m_scripting.open(room);
    m_searchProvider.open(room);
    m_runner.open(room);
    if (!m_isThere) return;
    m_signals.emplace(
        kit, clock,
        ScriptingSignals::Told{[this](const QStringList &ids) { send(u"TasksChanged"_s, {ids}); },
                               [this] { send(u"ListsChanged"_s, {}); }});
}

void ScriptingBus::close()
{
    m_signals.reset();
    m_scripting.close();
    m_searchProvider.close();
    m_runner.close();
}

void ScriptingBus::send(const QString &signal, const QVariantList &arguments)
{
    QDBusMessage message =
        QDBusMessage::createSignal(ScriptingObject::path, ScriptingObject::interface, signal);
    message.setArguments(arguments);
    m_connector().send(message);
}
