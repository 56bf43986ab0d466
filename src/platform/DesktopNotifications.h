#pragma once

#include "app/ports/UserNotificationPorts.h"
#include "platform/Bus.h"

#include <QDBusServiceWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

class NotificationServer;

/// Messages on the desktop, by the interface org.freedesktop.Notifications on the session bus (Desktop
/// Notifications, version 1.2). A server without actions gets the messages without them. Where no
/// server answers, the messages go to `panel`; the next one asks for a server again. Main thread.
class DesktopNotifications final : public QObject, public UserNotificationCenterPort {
public:
    /// `connector` connects to the bus at the first message; the session bus without one.
    explicit DesktopNotifications(UserNotificationCenterPort &panel,
                                  BusConnector connector = QDBusConnection::sessionBus);
    ~DesktopNotifications() override;

    void show(const UserNotification &notification) override;
    void withdraw(const QString &identifier) override;

private:
    struct Shown {
        uint id = 0;        // 0 until the server has said it, and when that server has gone
        int onTheirWay = 0; // messages sent that have no id yet
    };

    void connectToServer();
    void forgetServer();
    void askForCapabilities();
    void send(const UserNotification &notification);
    void didSend(const UserNotification &notification, uint id);
    QString identifierOf(uint id) const;
    void showInPanel(const QList<UserNotification> &notifications);
    void actionInvoked(uint id, const QString &key);
    void closed(uint id);

    UserNotificationCenterPort &m_panel;
    BusConnector m_connector;
    std::unique_ptr<NotificationServer> m_server;
    QDBusServiceWatcher m_serverWatch;
    std::optional<QStringList> m_capabilities; // unknown until the server has answered
    bool m_isAsking = false;
    QList<UserNotification> m_waiting; // for the capabilities
    QHash<QString, Shown> m_shown;     // by identifier
    QHash<uint, QString> m_tokens;     // of the next action
};
