#pragma once

#include "corvexkit/Result.h"
#include "model/settings/DataFolders.h"

#include <QJsonObject>

class CXClock;

/// What can be told of a data folder without anything that the person wrote: versions, the system, the
/// schema, how many records there are of each kind, whether the store is sound, sizes of files and keys of
/// preferences. A store that cannot be read is described as far as it goes, and changed in no case.
QJsonObject describeData(const DataFolders &folders, const CXClock &clock);

/// Packs that description and logToSend() into a ".zip" file in a new temporary folder and answers its path.
/// Takes as long as reading the store from end to end.
Result<QString> packDiagnosticData(const DataFolders &folders, const CXClock &clock);
