#include "platform/ScriptingBus.h"

#include "corvexkit/log/CXLog.h"

#include <QDBusError>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger busLog{u"script"};

} // namespace

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
    const auto slots = QDBusConnection::ExportScriptableSlots;
    const bool areAllThere = m_isThere &&
                             bus.registerObject(SearchProvider::path, &m_searchProvider, slots) &&
                             bus.registerObject(Runner::path, &m_runner, slots);
    if (!areAllThere)
        busLog.warning(u"Other programs cannot reach all of Orvane: "_s + bus.lastError().message());
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
