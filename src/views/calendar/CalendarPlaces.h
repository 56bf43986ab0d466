#pragma once

#include "corvexkit/time/Instant.h"

#include <QRect>

#include <optional>
#include <vector>

/// Where an item, or one part of it, is painted: from left to right, in the viewport.
struct ItemPlace {
    std::size_t item; ///< its index among the items of the page
    QRect bounds;
    enum class Shape { Bar, Box } shape = Shape::Bar;
    bool beginsBefore = false; ///< what is before this part is not in sight
    bool goesOn = false;
};

/// Stands for items that there is no room for.
struct MorePlace {
    QRect bounds;
    int count;
    Day day;
    ItemPlace::Shape shape = ItemPlace::Shape::Bar; ///< of those items
};

/// All that is painted of the items of a page. Those that are hidden are told of by `more`.
struct CalendarPlaces {
    std::vector<ItemPlace> items{};
    std::vector<MorePlace> more{};
};
