#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A folder of lists as a plain value. Lists point at their folder through `groupID`.
struct KWProjectGroupModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::ProjectGroup;
    static constexpr const char *tableName = "projectGroups";

    QString name;
    KWTaskSortType sortType = KWTaskSortTypeProject;

    bool operator==(const KWProjectGroupModel &) const = default;
};

template <>
inline constexpr auto
    recordFields<KWProjectGroupModel> = synchronized(field("name", &KWProjectGroupModel::name),
                                                     field("sortType", &KWProjectGroupModel::sortType));
