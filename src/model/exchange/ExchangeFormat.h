#pragma once

/// The document of an export: one JSON object (RFC 8259) in UTF-8,
///
///     {"format": "orvane-export",
///     "version": 1,
///     "users": [
///     {"id": …},
///     {"id": …}
///     ],
///     …}
///
/// with an array for each kind of record, named as its table and in the order of EveryRecord.h; each record
/// stands on a line of its own, by id. docs/data.md tells the rest.
namespace exchange {

inline constexpr const char *formatName = "orvane-export";
/// Grows when a document cannot be read by what read the one before.
inline constexpr int formatVersion = 1;

} // namespace exchange
