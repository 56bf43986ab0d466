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
};

/// All that is painted of the items of a page. Those that are hidden are told of by `more`.
struct CalendarPlaces {
    std::vector<ItemPlace> items{};
    std::vector<MorePlace> more{};

    /// The topmost one below the point.
    const ItemPlace *itemAt(const QPoint &point) const
    {
        for (auto each = items.rbegin(); each != items.rend(); ++each)
            if (each->bounds.contains(point)) return &*each;
        return nullptr;
    }
    const MorePlace *moreAt(const QPoint &point) const
    {
        for (const MorePlace &each : more)
            if (each.bounds.contains(point)) return &each;
        return nullptr;
    }
};
