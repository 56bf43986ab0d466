#include "platform/PortalSettings.h"

using namespace Qt::StringLiterals;

PortalSettings::PortalSettings(const QDBusConnection &bus)
    : QDBusAbstractInterface(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                             "org.freedesktop.portal.Settings", bus, nullptr)
{
    // Qt connects a signal of the bus only when it knows the types of its arguments by name.
    qRegisterMetaType<QDBusVariant>();
}
