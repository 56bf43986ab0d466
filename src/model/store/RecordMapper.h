#pragma once

#include "model/records/RecordFields.h"
#include "model/store/SqlValue.h"

#include <QList>
#include <QString>

#include <optional>

class Connection;

/// Reads and writes the rows of one kind of record, by its field table. Throws SQLite::Exception.
template <class Twin>
struct RecordMapper {
    static void insert(Connection &connection, const Twin &twin);
    /// Writes only the columns of `changed`, so that two writers of different fields keep both. Throws
    /// SQLITE_NOTFOUND when the row is gone.
    static void update(Connection &connection, const Twin &twin, FieldMask changed);
    static void remove(Connection &connection, const QString &sid);
    static std::optional<Twin> find(Connection &connection, const QString &sid);
    static QList<Twin> select(Connection &connection, const SqlCondition &condition);
};
