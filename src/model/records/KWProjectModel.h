#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A list as a plain value.
struct KWProjectModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Project;
    static constexpr const char *tableName = "projects";

    QString name;
    QString color; ///< "#rrggbb", empty for none
    QString groupID = KWProjectGroupIDUngrouped;
    KWProjectKind kind = KWProjectKindTask;
    KWTaskSortType sortType = KWTaskSortTypeCustom;
    bool closed = false;
    bool isInbox = false;
    bool isShared = false;
    int userCount = 1;
    bool isOwner = true;
    KWProjectPermission permission = KWProjectPermissionWrite;
    QString teamID;
    bool isMuted = false;
    bool showsInSmartList = true;
    KWProjectViewMode viewMode = KWProjectViewModeList;

    bool operator==(const KWProjectModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWProjectModel> = synchronized(
    field("name", &KWProjectModel::name), field("color", &KWProjectModel::color),
    field("groupID", &KWProjectModel::groupID, Json{"groupId"}), field("kind", &KWProjectModel::kind),
    field("sortType", &KWProjectModel::sortType), field("closed", &KWProjectModel::closed),
    field("isInbox", &KWProjectModel::isInbox), field("isShared", &KWProjectModel::isShared),
    field("userCount", &KWProjectModel::userCount), field("isOwner", &KWProjectModel::isOwner),
    field("permission", &KWProjectModel::permission),
    field("teamID", &KWProjectModel::teamID, Json{"teamId"}), field("isMuted", &KWProjectModel::isMuted),
    field("showsInSmartList", &KWProjectModel::showsInSmartList),
    field("viewMode", &KWProjectModel::viewMode));
