#pragma once

#include "corvexkit/time/Instant.h"

#include <optional>

/// A place on the calendar: a day as a whole, or a minute of it.
struct CalendarSpot {
    Day day{};
    std::optional<std::chrono::minutes> time{};

    LocalTime at() const { return LocalTime{day} + time.value_or(std::chrono::minutes{0}); }
    bool operator==(const CalendarSpot &) const = default;
};
