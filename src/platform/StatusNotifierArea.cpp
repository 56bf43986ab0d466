#include "platform/StatusNotifierArea.h"

#include "platform/StatusNotifierWatcher.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

StatusNotifierArea::StatusNotifierArea(CXClock &clock, OlderKind olderKind, BusConnector connector)
    : m_clock(clock), m_olderKind(olderKind), m_connector(std::move(connector))
{
    connect(&m_registration, &QDBusServiceWatcher::serviceRegistered, this, &StatusNotifierArea::ask);
}

StatusNotifierArea::~StatusNotifierArea() = default;

void StatusNotifierArea::start()
{
    if (m_olderKind == OlderKind::Possible) m_waiting = m_clock.callAfter(patience, [this] { appear(); });
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected()) return;
    m_watcher = std::make_unique<StatusNotifierWatcher>(bus);
    m_registration.setConnection(bus);
    m_registration.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_registration.addWatchedService(m_watcher->service());
    // The area itself may come after the service that tells of it.
    connect(m_watcher.get(), &StatusNotifierWatcher::StatusNotifierHostRegistered, this,
            &StatusNotifierArea::ask);
    ask();
}

void StatusNotifierArea::ask()
{
    if (m_isThere) return;
    QDBusMessage question = QDBusMessage::createMethodCall(m_watcher->service(), m_watcher->path(),
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << m_watcher->interface() << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    const QDBusPendingCall call = m_watcher->connection().asyncCall(question);
    whenAnswered(call, *this, [this](const QDBusPendingReply<QDBusVariant> &reply) {
        if (!reply.isError() && reply.value().variant().toBool()) appear();
    });
}

void StatusNotifierArea::appear()
{
    if (std::exchange(m_isThere, true)) return;
    m_waiting.cancel();
    if (onAppeared) onAppeared();
}
