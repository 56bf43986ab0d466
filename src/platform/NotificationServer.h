#pragma once

#include <QDBusAbstractInterface>

/// The notification server of the desktop as an object: its signals are Qt signals.
class NotificationServer : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit NotificationServer(const QDBusConnection &bus);

Q_SIGNALS:
    // Named on the bus.
    void ActionInvoked(uint id, const QString &key);
    void ActivationToken(uint id, const QString &token);
    void NotificationClosed(uint id, uint reason);
};
