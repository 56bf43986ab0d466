#pragma once

#include "model/records/RecordJson.h"

#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <string_view>

/// Records as other programs get them: by their own JSON mapping, without the fields that only keep account
/// of synchronization. The keys are in docs/scripting.md.

/// The names of those fields.
inline constexpr std::array scriptHiddenFields{
    std::string_view{"userID"},         std::string_view{"etag"},      std::string_view{"syncStatus"},
    std::string_view{"pendingChanges"}, std::string_view{"isDeleted"}, std::string_view{"serverStartDate"},
    std::string_view{"serverEndDate"}};

template <class Record>
QList<typename Record::Model> cx_MTL_modelsFromManagedObjects(const QList<Record *> &records)
{
    QList<typename Record::Model> models;
    models.reserve(records.size());
    for (const Record *each : records)
        models.append(each->model());
    return models;
}

template <class Twin>
QJsonObject cx_MTL_JSONDictionaryFromModel(const Twin &model)
{
    return toJson(model, [](std::string_view name) {
        return std::ranges::find(scriptHiddenFields, name) == scriptHiddenFields.end();
    });
}

template <class Twin>
QJsonArray cx_MTL_JSONArrayFromModels(const QList<Twin> &models)
{
    QJsonArray array;
    for (const Twin &each : models)
        array.append(cx_MTL_JSONDictionaryFromModel(each));
    return array;
}

/// On one line.
template <class Json>
QString cx_JSONString(const Json &json)
{
    return QString::fromUtf8(QJsonDocument{json}.toJson(QJsonDocument::Compact));
}
