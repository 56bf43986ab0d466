#include "model/store/RecordMapper.h"

#include "model/records/EveryRecord.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace {

template <class Twin>
std::string columnList(const char *separator, const char *suffix = "")
{
    std::string list;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (index > 0) list += separator;
        list.append(each.name).append(suffix);
    });
    return list;
}

template <class Twin>
const std::string &insertStatement()
{
    static const std::string sql = [] {
        std::string text =
            std::string{"INSERT INTO "} + Twin::tableName + " (" + columnList<Twin>(", ") + ") VALUES (?";
        for (std::size_t i = 1; i < fieldCount<Twin>; ++i)
            text += ", ?";
        return text + ')';
    }();
    return sql;
}

template <class Twin>
std::string updateStatement(FieldMask changed)
{
    std::string sql = std::string{"UPDATE "} + Twin::tableName + " SET ";
    const std::size_t start = sql.size();
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (!(changed >> index & 1)) return;
        if (sql.size() > start) sql += ", ";
        sql.append(each.name).append(" = ?");
    });
    return sql + " WHERE sid = ?";
}

template <class Twin>
const std::string &selectStatement()
{
    static const std::string sql = "SELECT " + columnList<Twin>(", ") + " FROM " + Twin::tableName;
    return sql;
}

template <class Twin>
Twin readRow(SQLite::Statement &statement)
{
    Twin twin;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        columns::read(statement.getColumn(int(index)), each.of(twin));
    });
    return twin;
}

} // namespace

template <class Twin>
void RecordMapper<Twin>::insert(Connection &connection, const Twin &twin)
{
    auto statement = connection.prepare(insertStatement<Twin>());
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        columns::bind(*statement, int(index) + 1, each.of(twin));
    });
    statement->exec();
}

template <class Twin>
void RecordMapper<Twin>::update(Connection &connection, const Twin &twin, FieldMask changed)
{
    if (changed == 0) return;
    auto statement = connection.prepare(updateStatement<Twin>(changed));
    int column = 0;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (changed >> index & 1) columns::bind(*statement, ++column, each.of(twin));
    });
    columns::bind(*statement, ++column, twin.sid);
    if (statement->exec() == 0) throw SQLite::Exception("The row to change is gone", SQLITE_NOTFOUND);
}

template <class Twin>
void RecordMapper<Twin>::remove(Connection &connection, const QString &sid)
{
    auto statement = connection.prepare(std::string{"DELETE FROM "} + Twin::tableName + " WHERE sid = ?");
    columns::bind(*statement, 1, sid);
    statement->exec();
}

template <class Twin>
std::optional<Twin> RecordMapper<Twin>::find(Connection &connection, const QString &sid)
{
    auto statement = connection.prepare(selectStatement<Twin>() + " WHERE sid = ?");
    columns::bind(*statement, 1, sid);
    if (!statement->executeStep()) return std::nullopt;
    return readRow<Twin>(*statement);
}

template <class Twin>
QList<Twin> RecordMapper<Twin>::select(Connection &connection, const SqlCondition &condition)
{
    std::string sql = selectStatement<Twin>();
    if (condition.index) sql.append(" INDEXED BY ").append(condition.index);
    sql.append(" WHERE ").append(condition.where);
    if (condition.orderBy) sql.append(" ORDER BY ").append(condition.orderBy);
    if (condition.limit >= 0) sql.append(" LIMIT ").append(std::to_string(condition.limit));
    auto statement = connection.prepare(sql);
    statement.bind(condition.values);
    QList<Twin> rows;
    while (statement->executeStep())
        rows.append(readRow<Twin>(*statement));
    return rows;
}

#define MAPPED(Record) template struct RecordMapper<Record::Model>;
EVERY_RECORD(MAPPED)
#undef MAPPED
