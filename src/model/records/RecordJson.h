#pragma once

#include "model/records/JsonCodec.h"
#include "model/records/RecordFields.h"

#include <QJsonObject>

/// The record as a JSON object, by its field table.
template <class Twin>
QJsonObject toJson(const Twin &twin)
{
    QJsonObject object;
    forEachField<Twin>([&](const auto &each, std::size_t) {
        object.insert(QLatin1StringView{each.jsonKey.data(), qsizetype(each.jsonKey.size())},
                      json::write(each.of(twin)));
    });
    return object;
}

/// Takes the fields that `object` has; others stay as they are, and keys that no field has are passed
/// over. Answers the key of a value that cannot be read; nothing when all could.
template <class Twin>
std::optional<QString> readJson(const QJsonObject &object, Twin &twin)
{
    std::optional<QString> wrongKey;
    forEachField<Twin>([&](const auto &each, std::size_t) {
        const QString key = QString::fromLatin1(each.jsonKey.data(), qsizetype(each.jsonKey.size()));
        const auto found = object.constFind(key);
        if (found == object.constEnd() || wrongKey) return;
        if (!json::read(*found, each.of(twin))) wrongKey = key;
    });
    return wrongKey;
}
