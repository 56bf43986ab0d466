#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <functional>
#include <optional>

/// A service on the bus, with a connection of its own as another process would have.
class FakeService : public QDBusVirtualObject {
public:
    /// What it answers to a call such as "org.freedesktop.DBus.Properties.Get(ss)"; nothing to one that it
    /// does not know.
    using Answer = std::optional<QVariantList>;
    using Answering = std::function<Answer(const QString &call, const QVariantList &arguments)>;

    FakeService(
        const QString &name, const QString &path,
        Answering answering = [](const auto &, const auto &) { return Answer{}; })
        : m_name{name}, m_path{path}, m_answering{std::move(answering)}
    {
        m_bus.registerVirtualObject(path, this);
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

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        const QString call =
            QStringLiteral("%1.%2(%3)").arg(message.interface(), message.member(), message.signature());
        const Answer answer = m_answering(call, message.arguments());
        return answer && bus.send(message.createReply(*answer));
    }

private:
    QString m_name, m_path;
    Answering m_answering;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name);
};

/// A bus that is not there.
inline QDBusConnection noBus()
{
    return QDBusConnection::connectToBus(QStringLiteral("unix:path=/none"), QStringLiteral("none"));
}
