#pragma once

#include <QString>

#include <array>
#include <concepts>
#include <cstdint>
#include <optional>
#include <utility>

// The values of the product's named constants that are ours to choose. They are stored, so they never
// change; everything else compares by name.

/// The stored text of an enumeration whose values are text constants.
template <class Enum>
using TextValues = std::pair<Enum, QLatin1StringView>;
template <class Enum>
inline constexpr auto textValues = nullptr;

template <class Enum>
concept TextConstant = !std::is_same_v<std::remove_cv_t<decltype(textValues<Enum>)>, std::nullptr_t>;

/// The values of an enumeration that is stored as its number.
template <class Enum>
inline constexpr auto numberValues = nullptr;

template <class Enum>
concept NumberConstant = !std::is_same_v<std::remove_cv_t<decltype(numberValues<Enum>)>, std::nullptr_t>;

/// A value kept as a number.
template <class Value>
concept StoredNumber = std::integral<Value> || NumberConstant<Value>;

template <TextConstant Enum>
QLatin1StringView textOf(Enum value)
{
    for (const auto &[each, text] : textValues<Enum>)
        if (each == value) return text;
    return textValues<Enum>[0].second;
}

template <TextConstant Enum>
std::optional<Enum> valueOf(QStringView text)
{
    for (const auto &[each, name] : textValues<Enum>)
        if (name == text) return each;
    return std::nullopt;
}

template <NumberConstant Enum>
std::optional<Enum> valueOf(std::int64_t number)
{
    for (const Enum each : numberValues<Enum>)
        if (std::int64_t(each) == number) return each;
    return std::nullopt;
}

enum KWTaskKind { KWTaskKindText, KWTaskKindChecklist, KWTaskKindNote };
template <>
inline constexpr auto textValues<KWTaskKind> = std::to_array<TextValues<KWTaskKind>>({
    {KWTaskKindText, QLatin1StringView{"TEXT"}},
    {KWTaskKindChecklist, QLatin1StringView{"CHECKLIST"}},
    {KWTaskKindNote, QLatin1StringView{"NOTE"}},
});

enum KWTaskStatus : std::int16_t {
    KWTaskStatusOpen = 0,
    KWTaskStatusCompleted = 2,
    KWTaskStatusAbandoned = -1
};
template <>
inline constexpr auto numberValues<KWTaskStatus> = std::to_array({KWTaskStatusOpen, KWTaskStatusCompleted,
                                                                  KWTaskStatusAbandoned});

enum KWTaskPriority : std::int16_t {
    KWTaskPriorityNone = 0,
    KWTaskPriorityLow = 1,
    KWTaskPriorityMedium = 3,
    KWTaskPriorityHigh = 5
};

/// The four priorities, highest first.
inline constexpr std::array<KWTaskPriority, 4> KWTaskPriorities{KWTaskPriorityHigh, KWTaskPriorityMedium,
                                                                KWTaskPriorityLow, KWTaskPriorityNone};
template <>
inline constexpr auto numberValues<KWTaskPriority> = KWTaskPriorities;

inline constexpr std::int64_t KWTaskAssignedToNobody = -1;

enum CXRecurrenceFrom { CXRecurrenceFromDefault, CXRecurrenceFromDueDate, CXRecurrenceFromCompletionDate };
template <>
inline constexpr auto textValues<CXRecurrenceFrom> = std::to_array<TextValues<CXRecurrenceFrom>>({
    {CXRecurrenceFromDefault, QLatin1StringView{"DEFAULT"}},
    {CXRecurrenceFromDueDate, QLatin1StringView{"DUE"}},
    {CXRecurrenceFromCompletionDate, QLatin1StringView{"COMPLETION"}},
});

enum KWProjectKind { KWProjectKindTask, KWProjectKindNote };
template <>
inline constexpr auto textValues<KWProjectKind> = std::to_array<TextValues<KWProjectKind>>({
    {KWProjectKindTask, QLatin1StringView{"TASK"}},
    {KWProjectKindNote, QLatin1StringView{"NOTE"}},
});

enum KWProjectPermission { KWProjectPermissionWrite, KWProjectPermissionComment, KWProjectPermissionRead };
template <>
inline constexpr auto textValues<KWProjectPermission> = std::to_array<TextValues<KWProjectPermission>>({
    {KWProjectPermissionWrite, QLatin1StringView{"WRITE"}},
    {KWProjectPermissionComment, QLatin1StringView{"COMMENT"}},
    {KWProjectPermissionRead, QLatin1StringView{"READ"}},
});

/// What one page of the calendar spans.
enum KWCalendarViewMode { KWCalendarViewModeDay, KWCalendarViewModeWeek, KWCalendarViewModeMonth };
template <>
inline constexpr auto textValues<KWCalendarViewMode> = std::to_array<TextValues<KWCalendarViewMode>>({
    {KWCalendarViewModeDay, QLatin1StringView{"DAY"}},
    {KWCalendarViewModeWeek, QLatin1StringView{"WEEK"}},
    {KWCalendarViewModeMonth, QLatin1StringView{"MONTH"}},
});

/// What gives the tasks on the calendar their colour.
enum KWCalendarColorBy { KWCalendarColorByProject, KWCalendarColorByPriority };
template <>
inline constexpr auto textValues<KWCalendarColorBy> = std::to_array<TextValues<KWCalendarColorBy>>({
    {KWCalendarColorByProject, QLatin1StringView{"PROJECT"}},
    {KWCalendarColorByPriority, QLatin1StringView{"PRIORITY"}},
});

enum KWProjectViewMode { KWProjectViewModeList, KWProjectViewModeKanban };
template <>
inline constexpr auto textValues<KWProjectViewMode> = std::to_array<TextValues<KWProjectViewMode>>({
    {KWProjectViewModeList, QLatin1StringView{"LIST"}},
    {KWProjectViewModeKanban, QLatin1StringView{"KANBAN"}},
});

enum KWTaskSortType {
    KWTaskSortTypeCustom,
    KWTaskSortTypeDate,
    KWTaskSortTypePriority,
    KWTaskSortTypeTitle,
    KWTaskSortTypeProject,
    KWTaskSortTypeTag,
    KWTaskSortTypeAssignee,
    KWTaskSortTypeCreatedTime,
    KWTaskSortTypeModifiedTime,
    KWTaskSortTypeCompletionDate,
    KWTaskSortTypePinnedDate,
};
template <>
inline constexpr auto textValues<KWTaskSortType> = std::to_array<TextValues<KWTaskSortType>>({
    {KWTaskSortTypeCustom, QLatin1StringView{"custom"}},
    {KWTaskSortTypeDate, QLatin1StringView{"date"}},
    {KWTaskSortTypePriority, QLatin1StringView{"priority"}},
    {KWTaskSortTypeTitle, QLatin1StringView{"title"}},
    {KWTaskSortTypeProject, QLatin1StringView{"project"}},
    {KWTaskSortTypeTag, QLatin1StringView{"tag"}},
    {KWTaskSortTypeAssignee, QLatin1StringView{"assignee"}},
    {KWTaskSortTypeCreatedTime, QLatin1StringView{"createdTime"}},
    {KWTaskSortTypeModifiedTime, QLatin1StringView{"modifiedTime"}},
    {KWTaskSortTypeCompletionDate, QLatin1StringView{"completionDate"}},
    {KWTaskSortTypePinnedDate, QLatin1StringView{"pinnedDate"}},
});

/// Whether the sidebar shows a smart list.
enum KWSmartProjectVisibility {
    KWSmartProjectVisibilityShown,
    KWSmartProjectVisibilityShownIfNotEmpty,
    KWSmartProjectVisibilityHidden
};
template <>
inline constexpr auto
    textValues<KWSmartProjectVisibility> = std::to_array<TextValues<KWSmartProjectVisibility>>({
        {KWSmartProjectVisibilityShown, QLatin1StringView{"shown"}},
        {KWSmartProjectVisibilityShownIfNotEmpty, QLatin1StringView{"ifNotEmpty"}},
        {KWSmartProjectVisibilityHidden, QLatin1StringView{"hidden"}},
    });

enum KWHabitCheckinStatus : std::int16_t {
    KWHabitCheckinStatusNotDone = 0,
    KWHabitCheckinStatusUnAchieved = 1, ///< said by the person not to have been done
    KWHabitCheckinStatusDone = 2
};
template <>
inline constexpr auto numberValues<KWHabitCheckinStatus> =
    std::to_array({KWHabitCheckinStatusNotDone, KWHabitCheckinStatusUnAchieved, KWHabitCheckinStatusDone});

enum KWFocusType : std::int16_t { KWFocusTypePomo = 0, KWFocusTypeStopwatch = 1 };
template <>
inline constexpr auto numberValues<KWFocusType> = std::to_array({KWFocusTypePomo, KWFocusTypeStopwatch});

enum KWPomoStatus : std::int16_t { KWPomoStatusAbandoned = 0, KWPomoStatusCompleted = 1 };
template <>
inline constexpr auto numberValues<KWPomoStatus> = std::to_array({KWPomoStatusAbandoned,
                                                                  KWPomoStatusCompleted});

enum KWRepeatInstanceType : std::int16_t { KWRepeatInstanceTypeTask = 0, KWRepeatInstanceTypeEvent = 1 };
template <>
inline constexpr auto numberValues<KWRepeatInstanceType> = std::to_array({KWRepeatInstanceTypeTask,
                                                                          KWRepeatInstanceTypeEvent});

/// `KWProject::groupID` of a list in no folder.
inline const QString KWProjectGroupIDUngrouped = QStringLiteral("none");

/// Manual positions: 2^40 apart, so that 40 halvings fit between two neighbours.
inline constexpr std::int64_t KWSortOrderMin = -(std::int64_t{1} << 62);
inline constexpr std::int64_t KWSortOrderMax = std::int64_t{1} << 62;
inline constexpr std::int64_t KWSortOrderStep = std::int64_t{1} << 40;

/// Where a record stands with the service. The numbers are stored.
enum KWSyncStatus : std::int16_t {
    KWSyncStatusDone = 0,    ///< as last pulled or pushed
    KWSyncStatusCreated = 1, ///< made here, not pushed yet
    KWSyncStatusUpdated = 2, ///< changed here, not pushed yet
    KWSyncStatusDeleted = 3, ///< deleted here, stays until pushed
};
template <>
inline constexpr auto numberValues<KWSyncStatus> = std::to_array({KWSyncStatusDone, KWSyncStatusCreated,
                                                                  KWSyncStatusUpdated, KWSyncStatusDeleted});
