#include "platform/StatusNotifierWatcher.h"

using namespace Qt::StringLiterals;

StatusNotifierWatcher::StatusNotifierWatcher(const QDBusConnection &bus)
    : QDBusAbstractInterface(u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                             "org.kde.StatusNotifierWatcher", bus, nullptr)
{
}
