#pragma once

#include "model/records/KWConstants.h"

#include <QLatin1StringView>

#include <chrono>
#include <optional>
#include <span>

/// What stands in the demo account: tables, with dates relative to the day.
namespace Demo {

enum class State { Open, Done, Trashed };

/// Days from today, and minutes of the day where there is a time.
struct When {
    int day;
    std::optional<std::chrono::minutes> from = std::nullopt;
    std::optional<std::chrono::minutes> until = std::nullopt;
};

struct Item {
    QLatin1StringView title;
    State state;
};

struct Task {
    QLatin1StringView title;
    std::optional<When> when = std::nullopt;
    KWTaskPriority priority = KWTaskPriorityNone;
    QLatin1StringView tag{};
    QLatin1StringView repeatRule{};
    QLatin1StringView content{};
    std::span<const Item> items{};
    State state = State::Open;
    QLatin1StringView parent{}; ///< title of one before it in the same list; empty for none
    int estimatedPomos = 0;
};

struct List {
    QLatin1StringView name;
    QLatin1StringView color;
    QLatin1StringView folder; ///< empty for none
    std::span<const Task> tasks;
};

struct Filter {
    QLatin1StringView name;
    QLatin1StringView rule;
};

/// A habit with two months of days behind it.
struct Habit {
    QLatin1StringView name;
    QLatin1StringView iconRes;
    QLatin1StringView color;
    QLatin1StringView section; ///< the stored name of one that every account begins with
    QLatin1StringView repeatRule;
    QLatin1StringView unit{}; ///< of an amount; empty for one that is done or not
    double goal = 1;
    /// The last seven days, today last: "d" done, "x" not achieved, "s" skipped, a digit that amount, "."
    /// open.
    QLatin1StringView week;
    int missesOneOf = 0; ///< so many of the days before were due for one that was missed
};

/// A session of the last seven days. The two weeks before have most of them, too.
struct Focus {
    int daysAgo;
    std::chrono::minutes from;
    std::chrono::minutes length;
    QLatin1StringView what; ///< title of a task or name of a habit
    KWFocusType type = KWFocusTypePomo;
    std::chrono::minutes pause{}; ///< in its middle, besides the length
};
inline constexpr int dailyPomoGoal = 8;

std::span<const QLatin1StringView> tags();
std::span<const Filter> filters();
std::span<const Task> inboxTasks();
/// In the order of their sections.
std::span<const Habit> habits();
/// The latest day first, and in each the first session.
std::span<const Focus> focus();
/// In the order of the sidebar.
std::span<const List> lists();

} // namespace Demo
