#pragma once

#include <string>

namespace schemas {

/// The table of a kind of record: the columns that every record has, then its own.
inline std::string table(const char *name, const char *columns)
{
    return std::string{"CREATE TABLE "} + name +
           " (id INTEGER PRIMARY KEY, sid TEXT NOT NULL UNIQUE, userID TEXT NOT NULL, etag TEXT NOT NULL, "
           "sortOrder INTEGER NOT NULL, createdTime INTEGER, modifiedTime INTEGER, syncStatus INTEGER NOT "
           "NULL, "
           "pendingChanges INTEGER NOT NULL, isDeleted INTEGER NOT NULL, " +
           columns + ");\n";
}

} // namespace schemas
