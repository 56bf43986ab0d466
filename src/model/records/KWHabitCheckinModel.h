#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// What was checked in for a habit on one day, as a plain value. At most one a habit and day.
struct KWHabitCheckinModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::HabitCheckin;
    static constexpr const char *tableName = "habitCheckins";

    QString habitID;
    int checkinStamp = 0; ///< the day, yyyymmdd
    std::optional<Instant> checkinTime;
    double value = 0;
    double goal = 1; ///< the habit's when the check-in was made
    KWHabitCheckinStatus status = KWHabitCheckinStatusNotDone;

    bool operator==(const KWHabitCheckinModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitCheckinModel> = synchronized(
    field("habitID", &KWHabitCheckinModel::habitID, Json{"habitId"}),
    field("checkinStamp", &KWHabitCheckinModel::checkinStamp),
    field("checkinTime", &KWHabitCheckinModel::checkinTime), field("value", &KWHabitCheckinModel::value),
    field("goal", &KWHabitCheckinModel::goal), field("status", &KWHabitCheckinModel::status));
