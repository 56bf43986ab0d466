#pragma once

#include "model/exchange/StoreImport.h"

#include <QString>

class Store;

/// Writes the export into `file`, whole or not at all. A file that is there is replaced when it is an export
/// and left when it is anything else. Any thread.
Result<void> exportToFile(const QString &file, Store &store);

/// Reads the export in `file`; see importStore().
Result<ImportSummary> importFromFile(const QString &file, Store &store);
