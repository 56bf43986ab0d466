#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// One generated occurrence of a repeating task or event, as a plain value. Never exchanged: it is
/// generated again wherever it is needed.
struct KWRepeatInstanceModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::RepeatInstance;
    static constexpr const char *tableName = "repeatInstances";

    QString referenceID; ///< the task or event that repeats
    KWRepeatInstanceType instanceType = KWRepeatInstanceTypeTask;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;

    const QString &accountID() const { return userID; }
    bool operator==(const KWRepeatInstanceModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWRepeatInstanceModel> =
    synchronized(field("referenceID", &KWRepeatInstanceModel::referenceID, Json{"referenceId"}, Change::None),
                 field("instanceType", &KWRepeatInstanceModel::instanceType, Change::None),
                 field("startDate", &KWRepeatInstanceModel::startDate, Change::None),
                 field("endDate", &KWRepeatInstanceModel::endDate, Change::None));
