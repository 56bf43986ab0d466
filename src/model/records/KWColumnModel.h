#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A column of a list that is shown as a board, as a plain value.
struct KWColumnModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Column;
    static constexpr const char *tableName = "columns";

    QString name;
    QString projectID; ///< owning list

    bool operator==(const KWColumnModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWColumnModel> = synchronized(field("name", &KWColumnModel::name),
                                                                 field("projectID", &KWColumnModel::projectID,
                                                                       Json{"projectId"}));
