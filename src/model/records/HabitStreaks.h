#pragma once

#include "corvexkit/time/Instant.h"

#include <optional>
#include <vector>

struct HabitFrequency;

/// What streaks are counted from: all days of a habit, or those from `since` on.
struct HabitHistory {
    std::vector<Day> done{};        ///< earliest first
    std::vector<Day> skipped{};     ///< earliest first
    bool isTodayUnAchieved = false; ///< the person said so; else today may still be done
    Day since{};                    ///< not after `firstDay` when these are all
    Day today{};
    Day firstDay{}; ///< of the habit, before which it is not due
    std::chrono::weekday firstWeekday = std::chrono::Monday;
};

/// How many days, or weeks of a weekly habit, were kept in a row; docs/habits.md has the rules.
struct HabitStreaks {
    int current = 0;
    int longest = 0;

    bool operator==(const HabitStreaks &) const = default;

    static HabitStreaks of(const HabitHistory &all, const HabitFrequency &frequency);
    /// What they are after a change of one day, from the days around it; nothing when these days do not
    /// tell, because a row of them is longer or the longest one may have been cut.
    std::optional<HabitStreaks> afterChangeOf(Day day, const HabitHistory &part,
                                              const HabitFrequency &frequency) const;
};
