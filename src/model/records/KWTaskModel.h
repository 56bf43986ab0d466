#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QStringList>

/// A task as a plain value. Dates are instants: an all-day date is the midnight that begins the day in
/// the zone in force when it was set, and the end of an all-day range is exclusive.
struct KWTaskModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Task;
    static constexpr const char *tableName = "tasks";

    QString title;
    QString content; ///< the text of a text task or a note
    QString desc;    ///< the text above the checklist of a checklist task
    KWTaskKind kind = KWTaskKindText;
    KWTaskStatus status = KWTaskStatusOpen;
    KWTaskPriority priority = KWTaskPriorityNone;
    int progress = 0; ///< percent
    QString projectID;
    QString columnID;
    QString parentId;
    QStringList childIds;
    QStringList tags; ///< names, a set in the order they were given
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    bool isAllDay = false;
    std::optional<Instant> serverStartDate;
    std::optional<Instant> serverEndDate;
    QString timeZone; ///< the zone in which the dates were set
    bool isFloating = false;
    QString repeatRule; ///< RFC 5545 section 3.3.10; empty: does not repeat
    CXRecurrenceFrom repeatFrom = CXRecurrenceFromDefault;
    QList<Instant> exDates;
    QStringList reminders;             ///< alarm triggers, RFC 5545 section 3.8.6.3
    std::optional<Instant> remindTime; ///< the next alert, worked out whenever what it depends on is saved
    std::optional<Instant> snoozedRemindDate;
    std::optional<Instant> completionDate;
    std::int64_t assignee = KWTaskAssignedToNobody;
    std::optional<Instant> pinnedDate;
    int estimatedPomo = 0;
    std::int64_t estimatedDuration = 0; ///< seconds
    bool isTrashed = false;
    QString repeatTaskID; ///< of a completed occurrence: the repeating task it was copied from

    /// The text shown below the title, wherever a task of this kind keeps it.
    const QString &description() const { return kind == KWTaskKindChecklist ? desc : content; }

    bool operator==(const KWTaskModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWTaskModel> = synchronized(
    field("title", &KWTaskModel::title, Change::Content),
    field("content", &KWTaskModel::content, Change::Content),
    field("desc", &KWTaskModel::desc, Change::Content), field("kind", &KWTaskModel::kind),
    field("status", &KWTaskModel::status), field("priority", &KWTaskModel::priority),
    field("progress", &KWTaskModel::progress), field("projectID", &KWTaskModel::projectID, Json{"projectId"}),
    field("columnID", &KWTaskModel::columnID, Json{"columnId"}), field("parentId", &KWTaskModel::parentId),
    field("childIds", &KWTaskModel::childIds), field("tags", &KWTaskModel::tags),
    field("startDate", &KWTaskModel::startDate), field("endDate", &KWTaskModel::endDate),
    field("isAllDay", &KWTaskModel::isAllDay),
    field("serverStartDate", &KWTaskModel::serverStartDate, Change::None),
    field("serverEndDate", &KWTaskModel::serverEndDate, Change::None),
    field("timeZone", &KWTaskModel::timeZone), field("isFloating", &KWTaskModel::isFloating),
    field("repeatRule", &KWTaskModel::repeatRule), field("repeatFrom", &KWTaskModel::repeatFrom),
    field("exDates", &KWTaskModel::exDates), field("reminders", &KWTaskModel::reminders),
    field("remindTime", &KWTaskModel::remindTime, Change::None),
    field("snoozedRemindDate", &KWTaskModel::snoozedRemindDate),
    field("completionDate", &KWTaskModel::completionDate), field("assignee", &KWTaskModel::assignee),
    field("pinnedDate", &KWTaskModel::pinnedDate), field("estimatedPomo", &KWTaskModel::estimatedPomo),
    field("estimatedDuration", &KWTaskModel::estimatedDuration), field("isTrashed", &KWTaskModel::isTrashed),
    field("repeatTaskID", &KWTaskModel::repeatTaskID, Json{"repeatTaskId"}));
