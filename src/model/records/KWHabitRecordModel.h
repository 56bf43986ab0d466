#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A note on one day of a habit, as a plain value.
struct KWHabitRecordModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::HabitRecord;
    static constexpr const char *tableName = "habitRecords";

    QString habitID;
    int stamp = 0; ///< the day, yyyymmdd
    QString content;

    bool operator==(const KWHabitRecordModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitRecordModel> =
    synchronized(field("habitID", &KWHabitRecordModel::habitID, Json{"habitId"}),
                 field("stamp", &KWHabitRecordModel::stamp),
                 field("content", &KWHabitRecordModel::content, Change::Content));
