#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A member of a team, as a plain value.
struct KWTeammateModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Teammate;
    static constexpr const char *tableName = "teammates";

    QString teamID;
    std::int64_t userServerID = 0;
    QString name;
    QString avatar; ///< path or URL of the picture, empty for none

    bool operator==(const KWTeammateModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWTeammateModel> =
    synchronized(field("teamID", &KWTeammateModel::teamID, Json{"teamId"}),
                 field("userServerID", &KWTeammateModel::userServerID, Json{"userServerId"}),
                 field("name", &KWTeammateModel::name), field("avatar", &KWTeammateModel::avatar));
