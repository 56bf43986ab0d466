#pragma once

#include <QDBusAbstractInterface>
#include <QDBusVariant>

/// The settings of the desktop portal as an object: its signals are Qt signals.
class PortalSettings : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit PortalSettings(const QDBusConnection &bus);

Q_SIGNALS:
    /// Named on the bus.
    void SettingChanged(const QString &nameSpace, const QString &key, const QDBusVariant &value);
};
