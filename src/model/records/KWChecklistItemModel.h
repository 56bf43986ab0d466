#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// An item of a task's checklist as a plain value.
struct KWChecklistItemModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::ChecklistItem;
    static constexpr const char *tableName = "checklistItems";

    QString taskID; ///< owning task
    QString title;
    KWTaskStatus status = KWTaskStatusOpen; ///< open or completed
    std::optional<Instant> startDate;
    bool isAllDay = false;
    std::optional<Instant> snoozedRemindDate;
    std::optional<Instant> remindTime; ///< as of a task
    std::optional<Instant> completionDate;

    bool isCompleted() const { return status == KWTaskStatusCompleted; }
    bool operator==(const KWChecklistItemModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWChecklistItemModel> = synchronized(
    field("taskID", &KWChecklistItemModel::taskID, Json{"taskId"}),
    field("title", &KWChecklistItemModel::title, Change::Content),
    field("status", &KWChecklistItemModel::status), field("startDate", &KWChecklistItemModel::startDate),
    field("isAllDay", &KWChecklistItemModel::isAllDay),
    field("snoozedRemindDate", &KWChecklistItemModel::snoozedRemindDate),
    field("completionDate", &KWChecklistItemModel::completionDate),
    field("remindTime", &KWChecklistItemModel::remindTime, Change::None));
