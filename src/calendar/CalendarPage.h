#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "corvexkit/time/Instant.h"

/// The days that the calendar shows at once. A plain value.
struct CalendarPage {
    enum class Kind { SingleDay, Week, Month };

    Kind kind = Kind::Week;
    Day begin{};    ///< the day, the first of the week, the first of the month
    Day firstDay{}; ///< the first on show; of a month that is where its first week begins
    int dayCount = 1;

    /// The page with that day on it.
    static CalendarPage around(Day day, Kind kind, std::chrono::weekday firstWeekday);
    /// That many pages later, or earlier when negative.
    CalendarPage moved(int pages, std::chrono::weekday firstWeekday) const;

    Day endDay() const { return firstDay + std::chrono::days{dayCount}; } ///< behind the last one on show
    bool holds(Day day) const { return day >= firstDay && day < endDay(); }

    struct Range {
        Instant start;
        Instant end;
    };
    /// Of which occurrences are generated before the page is shown: the day, the week, or the month with the
    /// week before it, up to the first week that begins after the next one has.
    Range generatedRange(const CXTimeZone &zone, std::chrono::weekday firstWeekday) const;

    bool operator==(const CalendarPage &) const = default;
};
