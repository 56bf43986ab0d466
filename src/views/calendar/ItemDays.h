#pragma once

#include "calendar/CalendarItem.h"

#include <algorithm>

/// The days that an item is on.
struct ItemDays {
    Day first;
    Day last;

    static ItemDays of(const CalendarItem &item)
    {
        const LocalTime end = std::max(item.start, item.end - std::chrono::milliseconds{1});
        return {std::chrono::floor<std::chrono::days>(item.start),
                std::chrono::floor<std::chrono::days>(end)};
    }
    bool hold(Day day) const { return first <= day && day <= last; }
    bool isOne() const { return first == last; }
};
