#pragma once

#include <QDBusAbstractInterface>

/// The properties of the system's date and time service as an object: its signals are Qt signals.
class TimeDateProperties : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit TimeDateProperties(const QDBusConnection &bus);

Q_SIGNALS:
    /// Named on the bus.
    void PropertiesChanged(const QString &interface, const QVariantMap &changed,
                           const QStringList &invalidated);
};
