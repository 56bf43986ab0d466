#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QString>
#include <QStringList>

#include <optional>

/// How far a habit is on its day.
struct HabitProgress {
    bool isRealType = false; ///< an amount is entered
    double value = 0;        ///< the amount of the day
    double goal = 1;         ///< that it is done with
    QString unit;
    int currentStreak = 0;
    bool countsWeeks = false; ///< the streak is one of weeks

    bool operator==(const HabitProgress &) const = default;
};

/// What every row of a list has, whatever it stands for.
struct KWBasicItemModel {
    enum class Kind : std::uint8_t { Task, ChecklistItem, CalendarEvent, Habit };

    Kind kind = Kind::Task;
    QString sid;
    QString title;

    bool operator==(const KWBasicItemModel &) const = default;
};

/// A row of a task list, read straight from the store: what a row shows and sorts by, and no more. A
/// checklist item has the list, tags, priority and assignee of its task; so has a later occurrence of a task
/// that repeats, which has its title, too, and an id of its own. An event of a subscribed calendar, and each
/// occurrence of one, has title, dates and calendar, and can only be read. A habit has title, colour and how
/// its day stands.
struct KWTaskListItemModel : KWBasicItemModel {
    KWTaskKind taskKind = KWTaskKindText;
    KWTaskStatus status = KWTaskStatusOpen;
    KWTaskPriority priority = KWTaskPriorityNone;
    bool isAllDay = false;
    bool repeats = false;
    int checklistCount = 0;
    int checklistDoneCount = 0;
    int attachmentCount = 0;
    int childPlace = 0; ///< among the children of its parent, as far as the parent lists it
    std::int64_t sortOrder = 0;
    std::int64_t rowID = 0;         ///< of the store: the order of those that are equal otherwise
    std::int64_t focusDuration = 0; ///< seconds spent on it
    std::int64_t assignee = KWTaskAssignedToNobody;
    QString ownerID;    ///< of a checklist item or a later occurrence: its task
    QString ownerTitle; ///< of a checklist item: what its task is called
    QString projectID;  ///< of an event: its calendar
    QString color;      ///< of an event or a habit: "#rrggbb" of its calendar or its own, empty for none
    QString columnID;
    QString parentId;
    QStringList tags;
    HabitProgress habit; ///< of a habit
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::optional<Instant> occurrence; ///< of a later occurrence: when it starts
    std::optional<Instant> completionDate;
    std::optional<Instant> pinnedDate;
    std::optional<Instant> createdTime;
    std::optional<Instant> modifiedTime;

    bool isChecklistItem() const { return kind == Kind::ChecklistItem; }
    bool isEvent() const { return kind == Kind::CalendarEvent; }
    bool isHabit() const { return kind == Kind::Habit; }
    bool isLaterOccurrence() const { return occurrence.has_value(); }
    /// Not only something of one.
    bool isTask() const { return kind == Kind::Task && !isLaterOccurrence(); }
    /// Something that can be chosen with others and changed.
    bool isTaskOrItem() const { return isTask() || isChecklistItem(); }
    /// The task that the row is, or is an item or an occurrence of; empty for an event and a habit.
    const QString &taskID() const
    {
        static const QString none;
        return isEvent() || isHabit() ? none : ownerID.isEmpty() ? sid : ownerID;
    }
    bool isNote() const { return taskKind == KWTaskKindNote; }
    bool isPinned() const { return pinnedDate.has_value(); }
    bool isClosed() const { return status != KWTaskStatusOpen; }
    bool operator==(const KWTaskListItemModel &) const = default;
};
