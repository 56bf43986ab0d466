#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWConstants.h"

#include <QString>

#include <optional>

struct DatedThing;
struct KWTaskListItemModel;

/// Something with a date, as the calendar shows it: by the wall clock of the zone in force. A plain value.
struct CalendarItem {
    enum class Kind { Task, ChecklistItem, Event, Habit, Focus };

    Kind kind = Kind::Task;
    QString entityID; ///< of the task, the checklist item, the event, the habit or the focus session
    QString taskID{}; ///< the task itself, or the one that the checklist item is in; empty for all others
    /// Which later occurrence it is of something that repeats: its start. Nothing for the first one, which is
    /// the task or event itself. Of a habit the start of the day.
    std::optional<Instant> occurrence{};
    QString listID{}; ///< of the list, or of the subscribed calendar
    QString title{};
    QString color{}; ///< "#rrggbb" of the list or calendar; empty for none
    KWTaskPriority priority = KWTaskPriorityNone;
    bool isAllDay = false;
    bool repeats = false;
    bool isClosed = false; ///< completed or abandoned
    bool isReadOnly = false;
    /// Of an all-day item the midnights before its first day and behind its last one. One that has no length
    /// ends where it starts.
    LocalTime start{};
    LocalTime end{};

    static CalendarItem ofThing(DatedThing thing, const CXTimeZone &zone);
    /// The event of a row of a list.
    static CalendarItem ofEventRow(const KWTaskListItemModel &event, const CXTimeZone &zone);

    /// Of things that begin at once, what has a higher one stands behind what has a lower one.
    int rank() const { return kind == Kind::Focus ? 2 : kind == Kind::Habit ? 1 : 0; }
    /// The same occurrence of the same thing, however it was changed.
    bool isSameAs(const CalendarItem &other) const
    {
        return kind == other.kind && entityID == other.entityID && occurrence == other.occurrence;
    }
    bool operator==(const CalendarItem &) const = default;
};
