#pragma once

#include <QString>

#include <optional>

class Connection;

/// What is wrong with the file behind the connection, in SQLite's words; nothing when it is sound. Reads
/// every page (PRAGMA quick_check): half a second for a hundred megabytes. Throws SQLite::Exception when
/// the file cannot be read at all. Any thread.
std::optional<QString> damageIn(Connection &connection);
