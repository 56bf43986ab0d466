#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A skipped day of a habit, as a plain value.
struct KWHabitSkipModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::HabitSkip;
    static constexpr const char *tableName = "habitSkips";

    QString habitID;
    int stamp = 0; ///< the day, yyyymmdd

    bool operator==(const KWHabitSkipModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitSkipModel> = synchronized(
    field("habitID", &KWHabitSkipModel::habitID, Json{"habitId"}), field("stamp", &KWHabitSkipModel::stamp));
