#pragma once

#include <QDBusAbstractInterface>

/// The service that knows the items and areas of the desktop as an object: its signals are Qt signals.
class StatusNotifierWatcher : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit StatusNotifierWatcher(const QDBusConnection &bus);

Q_SIGNALS:
    // Named on the bus.
    void StatusNotifierHostRegistered();
};
