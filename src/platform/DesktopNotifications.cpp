#include "platform/DesktopNotifications.h"

#include "app/ApplicationName.h"
#include "corvexkit/log/CXLog.h"
#include "platform/NotificationServer.h"

#include <QDBusPendingReply>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger desktopNotificationsLog{u"reminders"};
constexpr int asLongAsTheServerLikes = -1;
} // namespace

DesktopNotifications::DesktopNotifications(UserNotificationCenterPort &panel, BusConnector connector)
    : m_panel(panel), m_connector(std::move(connector))
{
    m_panel.onResponse = [this](const Response &response) {
        if (onResponse) onResponse(response);
    };
    m_panel.onClosed = [this](const QString &identifier) {
        if (onClosed) onClosed(identifier);
    };
}

DesktopNotifications::~DesktopNotifications() = default;

void DesktopNotifications::show(const UserNotification &notification)
{
    if (!m_server) connectToServer();
    if (m_capabilities) return send(notification);
    m_waiting.append(notification);
    if (m_isAsking) return;
    if (m_server->connection().isConnected()) return askForCapabilities();
    desktopNotificationsLog.info(u"No session bus: messages come in a window of their own."_s);
    showInPanel(std::exchange(m_waiting, {}));
}

void DesktopNotifications::connectToServer()
{
    m_server = std::make_unique<NotificationServer>(m_connector());
    connect(m_server.get(), &NotificationServer::ActionInvoked, this, &DesktopNotifications::actionInvoked);
    connect(m_server.get(), &NotificationServer::ActivationToken, this,
            [this](uint id, const QString &token) { m_tokens.insert(id, token); });
    connect(m_server.get(), &NotificationServer::NotificationClosed, this, &DesktopNotifications::closed);
    if (!m_server->connection().isConnected()) return;
    m_serverWatch.setConnection(m_server->connection());
    m_serverWatch.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    m_serverWatch.addWatchedService(m_server->service());
    connect(&m_serverWatch, &QDBusServiceWatcher::serviceUnregistered, this,
            &DesktopNotifications::forgetServer, Qt::UniqueConnection);
}

// Another one counts its messages from the beginning.
void DesktopNotifications::forgetServer()
{
    m_capabilities.reset();
    m_tokens.clear();
    for (Shown &each : m_shown)
        each.id = 0;
}

void DesktopNotifications::askForCapabilities()
{
    m_isAsking = true;
    whenAnswered(m_server->asyncCall(u"GetCapabilities"_s), *this, [this](const QDBusPendingCall &call) {
        m_isAsking = false;
        const QDBusPendingReply<QStringList> reply = call;
        const QList<UserNotification> waiting = std::exchange(m_waiting, {});
        if (reply.isError()) {
            desktopNotificationsLog.info(u"No notification server: "_s + reply.error().message());
            return showInPanel(waiting);
        }
        m_capabilities = reply.value();
        for (const UserNotification &each : waiting)
            send(each);
    });
}

void DesktopNotifications::send(const UserNotification &notification)
{
    QStringList actions;
    if (m_capabilities->contains(u"actions"))
        for (const UserNotification::Action &each : notification.actions)
            actions << each.key << each.label;
    const bool readsMarkup = m_capabilities->contains(u"body-markup");
    QVariantMap hints{{u"desktop-entry"_s, u"org.orvane.Orvane"_s}};
    if (notification.sound == UserNotification::Sound::None)
        hints.insert(u"suppress-sound"_s, true);
    else
        hints.insert(u"sound-name"_s, u"alarm-clock-elapsed"_s);
    if (!notification.imagePath.isEmpty())
        hints.insert(u"image-path"_s, QUrl::fromLocalFile(notification.imagePath).toString());
    Shown &shown = m_shown[notification.identifier];
    ++shown.onTheirWay;
    whenAnswered(m_server->asyncCall(u"Notify"_s, localizedApplicationName(), shown.id,
                                     u"org.orvane.Orvane"_s, notification.title,
                                     readsMarkup ? notification.body.toHtmlEscaped() : notification.body,
                                     actions, hints, asLongAsTheServerLikes),
                 *this, [this, notification](const QDBusPendingCall &call) {
                     const QDBusPendingReply<uint> reply = call;
                     if (!reply.isError()) return didSend(notification, reply.value());
                     // It has gone since it was asked, or will not take this one.
                     desktopNotificationsLog.warning(reply.error().message());
                     m_capabilities.reset();
                     if (m_shown.remove(notification.identifier)) showInPanel({notification});
                 });
}

void DesktopNotifications::didSend(const UserNotification &notification, uint id)
{
    const auto shown = m_shown.find(notification.identifier);
    if (shown == m_shown.end()) { // taken back on its way
        m_server->asyncCall(u"CloseNotification"_s, id);
        return;
    }
    // Shown a second time before the id was known that it would have replaced.
    if (shown->id != 0 && shown->id != id) m_server->asyncCall(u"CloseNotification"_s, shown->id);
    *shown = {.id = id, .onTheirWay = std::max(0, shown->onTheirWay - 1)};
}

QString DesktopNotifications::identifierOf(uint id) const
{
    const auto found =
        std::find_if(m_shown.begin(), m_shown.end(), [id](const Shown &each) { return each.id == id; });
    return found == m_shown.end() ? QString() : found.key();
}

void DesktopNotifications::showInPanel(const QList<UserNotification> &notifications)
{
    for (const UserNotification &each : notifications)
        m_panel.show(each);
}

void DesktopNotifications::withdraw(const QString &identifier)
{
    m_waiting.removeIf([&identifier](const auto &each) { return each.identifier == identifier; });
    if (const uint id = m_shown.take(identifier).id) m_server->asyncCall(u"CloseNotification"_s, id);
    m_panel.withdraw(identifier);
}

void DesktopNotifications::actionInvoked(uint id, const QString &key)
{
    // Servers tell everybody of everybody's messages.
    const QString identifier = identifierOf(id);
    const QString token = m_tokens.take(id);
    if (!identifier.isEmpty() && onResponse) onResponse({identifier, key, token});
}

void DesktopNotifications::closed(uint id)
{
    const QString identifier = identifierOf(id);
    m_tokens.remove(id);
    if (identifier.isEmpty()) return;
    if (Shown &shown = m_shown[identifier]; shown.onTheirWay > 0) { // the next one stands in its place
        shown.id = 0;
        return;
    }
    m_shown.remove(identifier);
    if (onClosed) onClosed(identifier);
}
