#include "platform/LogindManager.h"

using namespace Qt::StringLiterals;

LogindManager::LogindManager(const QDBusConnection &bus)
    : QDBusAbstractInterface(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                             "org.freedesktop.login1.Manager", bus, nullptr)
{
}
