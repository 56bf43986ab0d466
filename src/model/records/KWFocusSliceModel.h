#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A stretch of focus inside a session, as a plain value. What it was spent on is copied from the task
/// when it is saved, so that it stays readable when the task is gone.
struct KWFocusSliceModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::FocusSlice;
    static constexpr const char *tableName = "focusSlices";

    QString pomodoroID; ///< owning session
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    QString taskID;
    QString habitID;
    QString title;
    QString projectName;
    QString stringOfTagNames;

    bool operator==(const KWFocusSliceModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWFocusSliceModel> = synchronized(
    field("pomodoroID", &KWFocusSliceModel::pomodoroID, Json{"pomodoroId"}),
    field("startDate", &KWFocusSliceModel::startDate), field("endDate", &KWFocusSliceModel::endDate),
    field("taskID", &KWFocusSliceModel::taskID, Json{"taskId"}),
    field("habitID", &KWFocusSliceModel::habitID, Json{"habitId"}), field("title", &KWFocusSliceModel::title),
    field("projectName", &KWFocusSliceModel::projectName),
    field("stringOfTagNames", &KWFocusSliceModel::stringOfTagNames, Json{"tags"}));
