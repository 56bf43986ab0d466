#pragma once

/// The commands of the main menu that have a keyboard shortcut. The value is the number of the slot
/// under which the shortcut is kept.
enum class MenuCommand {
    AddTask = 6,
    CompleteTask,
    SetDate,
    ClearDate,
    SetToday,
    SetTomorrow,
    SetNextWeek,
    PriorityNone,
    PriorityLow,
    PriorityMedium,
    PriorityHigh,
    Print,
    OpenToday,
    OpenTomorrow,
    OpenNext7Days,
    OpenAll,
    OpenCalendar,
    OpenAssignedToMe,
    OpenInbox,
    OpenCompleted,
    OpenSummary,
    OpenTrash,
    OpenHabit = 28,
};
