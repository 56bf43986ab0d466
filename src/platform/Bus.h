#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>

#include <functional>

/// Connects to a bus when somebody needs it, and not at the start of the program.
using BusConnector = std::function<QDBusConnection()>;

/// Calls `then` with the answer or the error, from the event loop, unless `context` goes before. Main thread.
void whenAnswered(const QDBusPendingCall &call, QObject &context,
                  std::function<void(const QDBusPendingCall &)> then);
