#pragma once

#include "corvexkit/Result.h"

#include <QByteArray>

#include <functional>

class Store;

/// Takes the next piece of a document; false when it cannot be written.
using DocumentSink = std::function<bool(const QByteArray &piece)>;

/// Writes every record of the store, deleted ones and all accounts included, as of one moment: other
/// connections may go on writing. Two exports of one state are equal byte for byte. Needs memory for some
/// hundred records at a time. Any thread.
Result<void> exportStore(Store &store, const DocumentSink &sink);
