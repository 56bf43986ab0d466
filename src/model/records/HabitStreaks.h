#pragma once

#include "corvexkit/time/Instant.h"

#include <set>

struct HabitFrequency;

/// What streaks are counted from.
struct HabitHistory {
    std::set<Day> done;
    std::set<Day> skipped;
    bool isTodayUnAchieved = false; ///< the person said so; else today may still be done
    Day today;
    Day firstDay; ///< from which every so many days are counted
    std::chrono::weekday firstWeekday = std::chrono::Monday;
};

/// How many days, or weeks of a weekly habit, were kept in a row; docs/habits.md has the rules.
struct HabitStreaks {
    int current = 0;
    int longest = 0;

    static HabitStreaks of(const HabitHistory &history, const HabitFrequency &frequency);
};
