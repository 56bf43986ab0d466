#pragma once

#include <QDBusAbstractInterface>

/// The login manager of the system as an object: its signals are Qt signals.
class LogindManager : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit LogindManager(const QDBusConnection &bus);

Q_SIGNALS:
    /// Named on the bus; `start` is true before a sleep and false after it.
    void PrepareForSleep(bool start);
};
