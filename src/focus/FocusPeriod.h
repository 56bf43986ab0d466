#pragma once

#include "corvexkit/time/Instant.h"

/// Days that follow each other.
struct FocusDays {
    Day first{};
    Day end{}; ///< behind the last one

    bool contains(Day day) const { return day >= first && day < end; }
    bool operator==(const FocusDays &) const = default;
};

/// A day, week or month, counted from the one that today is in: -1 is the one before.
struct FocusPeriod {
    enum class Kind { OneDay, Week, Month };

    Kind kind = Kind::Week;
    int offset = 0; ///< a hundred thousand away at most

    FocusDays days(Day today, std::chrono::weekday firstWeekday) const;

    bool operator==(const FocusPeriod &) const = default;
};
