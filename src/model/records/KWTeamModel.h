#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A team of the account, as a plain value.
struct KWTeamModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Team;
    static constexpr const char *tableName = "teams";

    QString name;

    bool operator==(const KWTeamModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWTeamModel> = synchronized(field("name", &KWTeamModel::name));
