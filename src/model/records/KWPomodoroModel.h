#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// One focus session as a plain value. Its stretches are `KWFocusSliceModel`s.
struct KWPomodoroModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Pomodoro;
    static constexpr const char *tableName = "pomodoros";

    KWPomoStatus pomoStatus = KWPomoStatusCompleted;
    KWFocusType type = KWFocusTypePomo;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::int64_t pauseDuration = 0; ///< seconds
    QString taskID;                 ///< of the last stretch that has one, empty for none

    bool operator==(const KWPomodoroModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWPomodoroModel> = synchronized(
    field("pomoStatus", &KWPomodoroModel::pomoStatus, Json{"status"}), field("type", &KWPomodoroModel::type),
    field("startDate", &KWPomodoroModel::startDate), field("endDate", &KWPomodoroModel::endDate),
    field("pauseDuration", &KWPomodoroModel::pauseDuration),
    field("taskID", &KWPomodoroModel::taskID, Json{"taskId"}));
