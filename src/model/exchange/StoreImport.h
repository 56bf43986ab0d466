#pragma once

#include "corvexkit/Result.h"

#include <cstdint>

class QIODevice;
class Store;

/// What an import did, in records.
struct ImportSummary {
    std::int64_t added = 0;
    std::int64_t replaced = 0;
    std::int64_t kept = 0; ///< the store had the same or a later version, or another record in its place

    bool operator==(const ImportSummary &) const = default;
};

/// Takes the records of an exported document into the store, all of them or, with an error, none.
///
/// Records are told apart by id. One that is new is added as it stands, sync state included; of one that
/// the store has, the version with the later `modifiedTime` stays. A tag whose name is taken, and settings
/// of a list or a habit's day that are there already, stay as they are in the store.
///
/// Where the document and the store each have a local account, the document's records come to the account
/// of the store. The accounts of the store stay signed in or out as they are; one that is added is signed
/// in only when none was.
///
/// Reads a document of any length in constant memory, but for the ids of one kind. Announces nothing. Any
/// thread.
Result<ImportSummary> importStore(QIODevice &document, Store &store);
