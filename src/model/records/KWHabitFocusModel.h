#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// How long a habit was focused on during one day, as a plain value. At most one a habit and day.
struct KWHabitFocusModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::HabitFocus;
    static constexpr const char *tableName = "habitFocus";

    QString habitID;
    int stamp = 0;             ///< the day, yyyymmdd
    std::int64_t duration = 0; ///< seconds

    bool operator==(const KWHabitFocusModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitFocusModel> = synchronized(
    field("habitID", &KWHabitFocusModel::habitID, Json{"habitId"}), field("stamp", &KWHabitFocusModel::stamp),
    field("duration", &KWHabitFocusModel::duration, Change::Content));
