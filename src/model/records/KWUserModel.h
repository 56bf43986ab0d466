#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// An account as a plain value. `sid` is the user id.
struct KWUserModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::User;
    static constexpr const char *tableName = "users";

    std::int64_t userServerID = 0; ///< 0 for a local account
    QString name;
    QString avatar; ///< path or URL of the picture, empty for none
    bool isTeamUser = false;
    bool isSignedIn = false; ///< at most one account is

    bool operator==(const KWUserModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWUserModel> =
    synchronized(field("userServerID", &KWUserModel::userServerID, Json{"userServerId"}),
                 field("name", &KWUserModel::name), field("avatar", &KWUserModel::avatar),
                 field("isTeamUser", &KWUserModel::isTeamUser),
                 field("isSignedIn", &KWUserModel::isSignedIn, Change::None));
