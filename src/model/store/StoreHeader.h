#pragma once

#include "model/store/Store.h"

#include <optional>

/// The header of a store's file (SQLite file format, section 1.3), read without opening the database, which
/// could already change the file. Any thread.
namespace StoreHeader {

/// "ORVA", in the header of every store of ours.
inline constexpr quint32 applicationID = 0x4f525641;

/// Why the file at `path` cannot be opened, as far as its header tells; nothing for one that is missing or
/// empty.
std::optional<StoreProblem> problemAt(const QString &path);

} // namespace StoreHeader
