#pragma once

#include "corvexkit/Result.h"
#include "platform/Bus.h"

#include <QVariantList>

struct DataFolders;

/// Calls a command of the client that has the folder open, on the interface org.orvane.Scripting1, with the
/// name of the caller, which may be empty. Where the client of the desktop's own folder is not open, the bus
/// may know how to start it. An error says that no client answers. `connector` connects to the session bus.
Result<QString> callScripting(const QString &command, const QVariantList &arguments, const QString &from,
                              const DataFolders &folders,
                              const BusConnector &connector = QDBusConnection::sessionBus);
