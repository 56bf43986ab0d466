#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// Which range of a repeating task or event has been generated, and from what state of it, as a plain
/// value. One a source.
struct KWRepeatInstanceFetchFlagModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::RepeatInstanceFetchFlag;
    static constexpr const char *tableName = "repeatInstanceFetchFlags";

    QString referenceID; ///< the task or event that repeats
    std::optional<Instant> fetchBeginDate;
    std::optional<Instant> fetchEndDate;
    std::int64_t hashTag = 0; ///< fingerprint of the source

    const QString &accountID() const { return userID; }
    bool operator==(const KWRepeatInstanceFetchFlagModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWRepeatInstanceFetchFlagModel> = synchronized(
    field("referenceID", &KWRepeatInstanceFetchFlagModel::referenceID, Json{"referenceId"}, Change::None),
    field("fetchBeginDate", &KWRepeatInstanceFetchFlagModel::fetchBeginDate, Change::None),
    field("fetchEndDate", &KWRepeatInstanceFetchFlagModel::fetchEndDate, Change::None),
    field("hashTag", &KWRepeatInstanceFetchFlagModel::hashTag, Change::None));
