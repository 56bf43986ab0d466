#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A custom filter as a plain value.
struct KWFilterModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Filter;
    static constexpr const char *tableName = "filters";

    QString name;
    QString rule;
    KWTaskSortType sortType = KWTaskSortTypeProject;

    bool operator==(const KWFilterModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWFilterModel> = synchronized(field("name", &KWFilterModel::name),
                                                                 field("rule", &KWFilterModel::rule),
                                                                 field("sortType", &KWFilterModel::sortType));
