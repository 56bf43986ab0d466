#pragma once

#include "corvexkit/filter/CXSmartFilterFrame.h"

#include <optional>

/// Days at both ends included; one that is missing leaves that end open.
struct CXDayRange {
    std::optional<Day> from;
    std::optional<Day> until;

    bool operator==(const CXDayRange &) const = default;
};

/// Which dates a filter wants: a stretch of days, or something else about a date. A value.
struct CXDateSpan {
    enum class Kind : std::uint8_t {
        None,    ///< no date
        Any,     ///< some date
        Overdue, ///< a date that ends before today
        Repeats, ///< a date that comes again
        Today,
        Tomorrow,
        ThisWeek,
        Next7Days, ///< today and the six days after it
        Relative,  ///< `first` to `last` days from today
        Fixed,     ///< the days of `range`
    };

    Kind kind = Kind::Any;
    int first = 0;
    int last = 0;
    CXDayRange range{};

    /// The farthest day from today that a relative span can name.
    static constexpr int farthest = 36500;

    static CXDateSpan relative(int first, int last)
    {
        return {.kind = Kind::Relative, .first = first, .last = last};
    }
    static CXDateSpan fixed(const CXDayRange &range) { return {.kind = Kind::Fixed, .range = range}; }

    /// Whether the span is a stretch of days, and days() its days.
    bool isOfDays() const { return kind >= Kind::Today; }
    CXDayRange days(const CXSmartFilterFrame &frame) const;

    bool operator==(const CXDateSpan &) const = default;
};
