#pragma once

#include <cstddef>
#include <cstdint>

/// The kinds of stored records. Announcements of changes name records by kind and id. The order is that
/// of EveryRecord.h.
enum class RecordKind : std::uint8_t {
    User,
    UserSettings,
    ProjectGroup,
    Project,
    Column,
    Tag,
    Filter,
    SmartProjectSetting,
    ListDisplayConfiguration,
    CalendarDisplayConfiguration,
    Task,
    ChecklistItem,
    Attachment,
    Comment,
    FocusSummary,
    TaskDueDateSortOrder,
    TaskPrioritySortOrder,
    TaskProjectSortOrder,
    TaskTagSortOrder,
    TaskPinnedSortOrder,
    ProjectPinnedSortOrder,
    HabitSection,
    Habit,
    HabitCheckin,
    HabitRecord,
    HabitSkip,
    HabitFocus,
    PomoSettings,
    Pomodoro,
    FocusSlice,
    CalSubscription,
    CalSubscriptionEvent,
    RepeatInstance,
    RepeatInstanceFetchFlag,
    Team,
    Teammate,
    Teamworker,
};

inline constexpr std::size_t recordKindCount = std::size_t(RecordKind::Teamworker) + 1;
