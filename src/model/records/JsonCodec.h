#pragma once

#include "corvexkit/time/Instant.h"
#include "corvexkit/time/TimeText.h"
#include "model/records/KWConstants.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QStringList>

#include <concepts>
#include <optional>

/// How a field's value stands in JSON: texts, numbers and flags as such, instants as RFC 3339 in UTC (as
/// milliseconds since the epoch outside the years 0 to 9999), enumerations as their number or stored
/// text, lists as arrays, nothing as null. Reading answers false for a value of another kind, and for a
/// number or text that no constant of the enumeration has, and leaves the field as it was.
namespace json {

inline QJsonValue write(const QString &value) { return value; }
inline QJsonValue write(bool value) { return value; }
inline QJsonValue write(double value) { return value; }

template <StoredNumber Number>
QJsonValue write(Number value)
{
    return qint64(value);
}

template <TextConstant Enum>
QJsonValue write(Enum value)
{
    return QString{textOf(value)};
}

inline QJsonValue write(Instant value)
{
    const QString text = TimeText::fromInstant(value);
    if (TimeText::toInstant(text) == value) return text;
    return qint64(value.time_since_epoch().count());
}

template <class Value>
QJsonValue write(const QList<Value> &values)
{
    QJsonArray array;
    for (const Value &each : values)
        array.append(write(each));
    return array;
}

template <class Value>
QJsonValue write(const std::optional<Value> &value)
{
    return value ? write(*value) : QJsonValue{QJsonValue::Null};
}

inline bool read(const QJsonValue &json, QString &value)
{
    if (json.isString()) value = json.toString();
    return json.isString();
}

inline bool read(const QJsonValue &json, bool &value)
{
    value = json.toBool(value);
    return json.isBool();
}

inline bool read(const QJsonValue &json, double &value)
{
    value = json.toDouble(value);
    return json.isDouble();
}

template <std::integral Number>
bool read(const QJsonValue &json, Number &value)
{
    constexpr qint64 none = std::numeric_limits<qint64>::min();
    const qint64 number = json.toInteger(none);
    // Another answer for another fallback: the value is no whole number.
    if (number == none && json.toInteger(0) != none) return false;
    if (qint64(Number(number)) != number) return false;
    value = Number(number);
    return true;
}

template <NumberConstant Enum>
bool read(const QJsonValue &json, Enum &value)
{
    qint64 number = 0;
    const std::optional<Enum> known = read(json, number) ? valueOf<Enum>(number) : std::nullopt;
    value = known.value_or(value);
    return known.has_value();
}

template <TextConstant Enum>
bool read(const QJsonValue &json, Enum &value)
{
    const std::optional<Enum> known = valueOf<Enum>(json.toString());
    value = known.value_or(value);
    return known.has_value();
}

inline bool read(const QJsonValue &json, Instant &value)
{
    std::optional<Instant> instant = TimeText::toInstant(json.toString());
    qint64 milliseconds = 0;
    if (!instant && !json.isString() && read(json, milliseconds))
        instant = Instant{std::chrono::milliseconds{milliseconds}};
    value = instant.value_or(value);
    return instant.has_value();
}

template <class Value>
bool read(const QJsonValue &json, QList<Value> &values)
{
    if (!json.isArray()) return false;
    QList<Value> list;
    for (const QJsonValue &each : json.toArray())
        if (!read(each, list.emplaceBack())) return false;
    values = std::move(list);
    return true;
}

template <class Value>
bool read(const QJsonValue &json, std::optional<Value> &value)
{
    if (json.isNull()) {
        value.reset();
        return true;
    }
    Value present{};
    if (!read(json, present)) return false;
    value = std::move(present);
    return true;
}

} // namespace json
