#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A member of a shared list, as a plain value.
struct KWTeamworkerModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Teamworker;
    static constexpr const char *tableName = "teamworkers";

    QString projectID; ///< the shared list
    std::int64_t userServerID = 0;
    QString name;
    QString avatar; ///< path or URL of the picture, empty for none
    KWProjectPermission permission = KWProjectPermissionWrite;
    bool isOwner = false;

    bool operator==(const KWTeamworkerModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWTeamworkerModel> = synchronized(
    field("projectID", &KWTeamworkerModel::projectID, Json{"projectId"}),
    field("userServerID", &KWTeamworkerModel::userServerID, Json{"userServerId"}),
    field("name", &KWTeamworkerModel::name), field("avatar", &KWTeamworkerModel::avatar),
    field("permission", &KWTeamworkerModel::permission), field("isOwner", &KWTeamworkerModel::isOwner));
