#pragma once

#include "model/records/KWConstants.h"
#include "model/store/SqlValue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

#include <SQLiteCpp/SQLiteCpp.h>

#include <concepts>
#include <optional>

/// How a field's value stands in a column: texts as UTF-8, numbers and flags as integers, instants as
/// milliseconds since the epoch, enumerations as their number or stored text, lists as JSON arrays,
/// nothing as NULL. A stored number or text that no constant has reads as the field's default.
namespace columns {

inline void bind(SQLite::Statement &statement, int index, const QString &value)
{
    statement.bind(index, value.toStdString());
}

template <StoredNumber Number>
void bind(SQLite::Statement &statement, int index, Number value)
{
    statement.bind(index, std::int64_t(value));
}

template <TextConstant Enum>
void bind(SQLite::Statement &statement, int index, Enum value)
{
    statement.bind(index, textOf(value).data());
}

inline void bind(SQLite::Statement &statement, int index, double value) { statement.bind(index, value); }

inline void bind(SQLite::Statement &statement, int index, Instant value)
{
    statement.bind(index, storedInstant(value));
}

inline void bind(SQLite::Statement &statement, int index, const QStringList &value)
{
    if (value.isEmpty())
        statement.bind(index, "[]");
    else
        statement.bind(
            index,
            QJsonDocument{QJsonArray::fromStringList(value)}.toJson(QJsonDocument::Compact).toStdString());
}

inline void bind(SQLite::Statement &statement, int index, const QList<Instant> &value)
{
    QJsonArray array;
    for (const Instant &each : value)
        array.append(qint64(storedInstant(each)));
    statement.bind(index, QJsonDocument{array}.toJson(QJsonDocument::Compact).toStdString());
}

template <class Value>
void bind(SQLite::Statement &statement, int index, const std::optional<Value> &value)
{
    if (value)
        bind(statement, index, *value);
    else
        statement.bind(index);
}

inline void read(const SQLite::Column &column, QString &value)
{
    value = QString::fromUtf8(column.getText(), column.getBytes());
}

template <std::integral Number>
void read(const SQLite::Column &column, Number &value)
{
    value = Number(column.getInt64());
}

template <NumberConstant Enum>
void read(const SQLite::Column &column, Enum &value)
{
    value = valueOf<Enum>(column.getInt64()).value_or(value);
}

template <TextConstant Enum>
void read(const SQLite::Column &column, Enum &value)
{
    value = valueOf<Enum>(QString::fromUtf8(column.getText(), column.getBytes())).value_or(value);
}

inline void read(const SQLite::Column &column, double &value) { value = column.getDouble(); }

inline void read(const SQLite::Column &column, Instant &value)
{
    value = Instant{std::chrono::milliseconds{column.getInt64()}};
}

inline QJsonArray readArray(const SQLite::Column &column)
{
    return QJsonDocument::fromJson(QByteArray::fromRawData(column.getText(), column.getBytes())).array();
}

inline void read(const SQLite::Column &column, QStringList &value)
{
    value.clear();
    if (column.getBytes() <= 2) return; // "[]"
    for (const QJsonValue &each : readArray(column))
        value.append(each.toString());
}

inline void read(const SQLite::Column &column, QList<Instant> &value)
{
    value.clear();
    if (column.getBytes() <= 2) return;
    for (const QJsonValue &each : readArray(column))
        value.append(Instant{std::chrono::milliseconds{each.toInteger()}});
}

template <class Value>
void read(const SQLite::Column &column, std::optional<Value> &value)
{
    if (column.isNull())
        value.reset();
    else
        read(column, value.emplace());
}

} // namespace columns
