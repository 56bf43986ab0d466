#include "platform/NotificationServer.h"

using namespace Qt::StringLiterals;

NotificationServer::NotificationServer(const QDBusConnection &bus)
    : QDBusAbstractInterface(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
                             "org.freedesktop.Notifications", bus, nullptr)
{
}
