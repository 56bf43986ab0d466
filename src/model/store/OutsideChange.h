#pragma once

#include "corvexkit/Result.h"
#include "model/settings/DataFolders.h"

#include <QByteArray>

/// How a process that writes the store beside the one that holds the folder tells of it: by a fresh stamp
/// in a small file, which the other watches. Any thread.

/// Call after a save. A failure harms nothing but a window that may show the change later.
Result<void> announceOutsideChange(const DataFolders &folders);

/// The last stamp; two are equal only when nothing was announced between. Empty when nothing ever was,
/// or while one is being written.
QByteArray lastOutsideChange(const DataFolders &folders);
