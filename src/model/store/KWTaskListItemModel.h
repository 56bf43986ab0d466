#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What every row of a list has, whatever it stands for.
struct KWBasicItemModel {
    enum class Kind : std::uint8_t { Task, ChecklistItem, CalendarEvent, Habit, Agenda };

    Kind kind = Kind::Task;
    QString sid;
    QString title;

    bool operator==(const KWBasicItemModel &) const = default;
};

/// A row of a task list, read straight from the store: what a row shows and sorts by, and no more.
struct KWTaskListItemModel : KWBasicItemModel {
    KWTaskKind taskKind = KWTaskKindText;
    KWTaskStatus status = KWTaskStatusOpen;
    KWTaskPriority priority = KWTaskPriorityNone;
    bool isAllDay = false;
    bool repeats = false;
    int checklistCount = 0;
    int checklistDoneCount = 0;
    std::int64_t sortOrder = 0;
    std::int64_t rowID = 0; ///< of the store: the order of those that are equal otherwise
    QString projectID;
    QStringList tags;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::optional<Instant> completionDate;

    bool isClosed() const { return status != KWTaskStatusOpen; }
    bool operator==(const KWTaskListItemModel &) const = default;
};
