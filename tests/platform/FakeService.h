#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

/// A service on the bus, with a connection of its own as another process would have. Its slots and
/// properties can be called there.
class FakeService : public QObject {
public:
    FakeService(const QString &name, const QString &path) : m_name{name}, m_path{path}
    {
        m_bus.registerObject(path, this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        m_bus.registerService(name);
    }
    ~FakeService() override
    {
        // Answered by the bus, so that the next test does not meet the name, and what was told has left.
        m_bus.unregisterService(m_name);
        QDBusConnection::disconnectFromBus(m_name);
    }

    void tell(const char *interface, const char *member, const QVariantList &arguments = {})
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(m_path, QString::fromLatin1(interface), QString::fromLatin1(member));
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

private:
    QString m_name, m_path;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name);
};

/// A bus that is not there.
inline QDBusConnection noBus()
{
    return QDBusConnection::connectToBus(QStringLiteral("unix:path=/none"), QStringLiteral("none"));
}
