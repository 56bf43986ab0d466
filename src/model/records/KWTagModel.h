#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A tag as a plain value. `name` is the key: the label in lower case; tasks hold names.
struct KWTagModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Tag;
    static constexpr const char *tableName = "tags";

    QString name;
    QString label; ///< as shown
    QString color; ///< "#rrggbb", empty for none
    KWTaskSortType sortType = KWTaskSortTypeProject;
    QString parent; ///< name of the parent tag, empty for none

    bool operator==(const KWTagModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWTagModel> = synchronized(field("name", &KWTagModel::name),
                                                              field("label", &KWTagModel::label),
                                                              field("color", &KWTagModel::color),
                                                              field("sortType", &KWTagModel::sortType),
                                                              field("parent", &KWTagModel::parent));
