#include "platform/TimeDateProperties.h"

using namespace Qt::StringLiterals;

TimeDateProperties::TimeDateProperties(const QDBusConnection &bus)
    : QDBusAbstractInterface(u"org.freedesktop.timedate1"_s, u"/org/freedesktop/timedate1"_s,
                             "org.freedesktop.DBus.Properties", bus, nullptr)
{
}
