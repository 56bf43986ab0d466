#pragma once

#include "calendar/CalendarLayout.h"

#include <QString>

/// A page of the calendar with all that stands on it, laid out. A plain value: it may cross threads.
struct CalendarPageContent {
    CalendarPage page{};
    Day today{};
    std::vector<CalendarItem> items{};
    std::vector<TimedBox> timed{}; ///< of a day or week
    std::vector<LaneBar> bars{};   ///< the all-day lane of a day or week; the rows of a month

    /// Gives the items their places.
    void layOut();

    bool operator==(const CalendarPageContent &) const = default;
};
