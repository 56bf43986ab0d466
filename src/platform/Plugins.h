#pragma once

#include <QObject>
#include <QString>

/// Parts of the program that are libraries of their own, so that what they link costs nothing before it is
/// used: `plugins/NAME.so` beside the program where it is built, `../lib/orvane/plugins/NAME.so` where it
/// is installed. Main thread.
namespace Plugins {

/// Empty where it is not installed.
QString fileOf(const QString &name);

/// Loaded once, and kept. Null where it is not installed or does not load; the log has the reason.
QObject *load(const QString &name);

template <class Interface>
Interface *load(const QString &name)
{
    return qobject_cast<Interface *>(load(name));
}

} // namespace Plugins
