#pragma once

#include "model/store/ObjectContext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

/// Ids as one value for a placeholder: `sid IN (SELECT value FROM json_each(?))`.
inline SqlValue idList(const QStringList &ids)
{
    return QString::fromUtf8(QJsonDocument{QJsonArray::fromStringList(ids)}.toJson(QJsonDocument::Compact));
}

/// Those of the records that there are and that are not deleted, each once, in the order of the ids.
template <class Record>
QList<Record *> findAll(const QStringList &ids, ObjectContext &context)
{
    context.fetch<Record>({.where = "sid IN (SELECT value FROM json_each(?))", .values = {idList(ids)}});
    QList<Record *> records;
    QSet<QString> found;
    for (const QString &each : ids) {
        Record *record = found.contains(each) ? nullptr : context.find<Record>(each);
        if (!record || record->isDeleted()) continue;
        found.insert(each);
        records.append(record);
    }
    return records;
}

/// The same of the stored ones, in no order: quick also where most ids are of other records.
template <class Record>
QList<Record *> findStored(const QStringList &ids, ObjectContext &context)
{
    QList<Record *> records =
        context.fetch<Record>({.where = "sid IN (SELECT value FROM json_each(?))", .values = {idList(ids)}});
    records.removeIf([](const Record *each) { return each->isDeleted(); });
    return records;
}
