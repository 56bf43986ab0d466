#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// The focus that one person has spent on a task, as a plain value.
struct KWFocusSummaryModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::FocusSummary;
    static constexpr const char *tableName = "focusSummaries";

    QString taskID;
    std::int64_t userServerID = 0; ///< whose focus it was
    int pomoCount = 0;
    std::int64_t pomoDuration = 0;      ///< seconds
    std::int64_t stopwatchDuration = 0; ///< seconds

    bool operator==(const KWFocusSummaryModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWFocusSummaryModel> =
    synchronized(field("taskID", &KWFocusSummaryModel::taskID, Json{"taskId"}),
                 field("userServerID", &KWFocusSummaryModel::userServerID, Json{"userServerId"}),
                 field("pomoCount", &KWFocusSummaryModel::pomoCount),
                 field("pomoDuration", &KWFocusSummaryModel::pomoDuration),
                 field("stopwatchDuration", &KWFocusSummaryModel::stopwatchDuration));
