#pragma once

#include "model/records/JsonCodec.h"
#include "model/records/RecordFields.h"

#include <algorithm>
#include <array>
#include <string_view>

// Records as other programs get them: by their own JSON mapping, without the fields that only keep account of
// synchronization. The keys are in docs/scripting.md. Texts are written as they come, on one line: objects of
// their own in between would double the time of an answer.

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

/// Appends a text, number, flag, null or an array of these as JSON (RFC 8259).
void appendJson(QString &json, const QJsonValue &value);

/// Appends the record as an object, in the order of its field table.
template <class Twin>
void appendJson(QString &json, const Twin &model)
{
    char16_t before = u'{';
    forEachField<Twin>([&](const auto &each, std::size_t) {
        if (std::ranges::find(scriptHiddenFields, each.name) != scriptHiddenFields.end()) return;
        json += QChar{before};
        json += u'"';
        json += QLatin1StringView{each.jsonKey.data(), qsizetype(each.jsonKey.size())};
        json += QLatin1StringView{"\":"};
        appendJson(json, QJsonValue{json::write(each.of(model))});
        before = u',';
    });
    json += u'}';
}

/// A JSON text of the record or value.
template <class Value>
QString cx_JSONString(const Value &value)
{
    QString json;
    appendJson(json, value);
    return json;
}

/// The same of an array of them.
template <class Twin>
QString cx_MTL_JSONArrayFromModels(const QList<Twin> &models)
{
    QString json{u'['};
    for (const Twin &each : models) {
        if (json.size() > 1) json += u',';
        appendJson(json, each);
    }
    return json + u']';
}
