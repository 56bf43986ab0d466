#pragma once

#include "platform/FakeService.h"

#include <QDBusArgument>
#include <QStringList>

/// A desktop's server of messages (Desktop Notifications, version 1.2) that notes what it is asked for.
struct FakeNotificationServer : FakeService {
    static inline const QString service = QStringLiteral("org.freedesktop.Notifications");

    struct Message {
        uint id;
        uint replaced;
        QString title;
        QString body;
        QStringList actions;
        QVariantMap hints{};
    };

    explicit FakeNotificationServer(const QStringList &abilities = {QStringLiteral("actions"),
                                                                    QStringLiteral("body-markup")})
        : FakeService{service, QStringLiteral("/org/freedesktop/Notifications"),
                      [this, abilities](const QString &call, const QVariantList &arguments) -> Answer {
                          if (call == service + QStringLiteral(".GetCapabilities()")) return {{abilities}};
                          if (call == service + QStringLiteral(".Notify(susssasa{sv}i)"))
                              return {{noted(arguments)}};
                          if (call == service + QStringLiteral(".CloseNotification(u)"))
                              closed << arguments.first().toUInt();
                          return {};
                      }}
    {
    }
    uint noted(const QVariantList &arguments)
    {
        const uint replaced = arguments.at(1).toUInt();
        const uint id = replaced != 0 ? replaced : uint(messages.size()) + 7;
        messages.append({id, replaced, arguments.at(3).toString(), arguments.at(4).toString(),
                         arguments.at(5).toStringList(), qdbus_cast<QVariantMap>(arguments.at(6))});
        return id;
    }
    void press(uint id, const QString &key)
    {
        tell(qPrintable(service), "ActivationToken", {id, QStringLiteral("token")});
        tell(qPrintable(service), "ActionInvoked", {id, key});
        tell(qPrintable(service), "NotificationClosed", {id, 2u});
    }

    QList<Message> messages;
    QList<uint> closed;
};
