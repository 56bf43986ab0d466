#pragma once

#include "corvexkit/time/Instant.h"

/// How a day of a habit went.
enum class HabitDayState {
    Open,       ///< nothing was entered, or less than the goal
    Done,       ///< the amount reached the goal
    UnAchieved, ///< the person said that it was not
    Skipped,    ///< on purpose; it breaks no streak
};

/// One day of one habit, as views show it. A plain value.
struct HabitDay {
    Day day{};
    HabitDayState state = HabitDayState::Open;
    double value = 0;      ///< the amount entered
    double goal = 1;       ///< of that day: the habit's of now when nothing was entered
    bool isDue = false;    ///< by the habit's rule
    bool isOfWeek = false; ///< a week asks for some of its days, not for this one
    bool isToCome = false;
    bool hasNote = false;

    bool operator==(const HabitDay &) const = default;

    /// How much of the goal was reached, 0 to 1.
    double progress() const
    {
        return state == HabitDayState::Done || value >= goal ? 1 : value <= 0 ? 0 : value / goal;
    }
    /// Whether it was to be done, is over and was not.
    bool isMissed(Day today) const
    {
        return state == HabitDayState::UnAchieved ||
               (state == HabitDayState::Open && isDue && !isOfWeek && day < today);
    }
};
