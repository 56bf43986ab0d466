#pragma once

namespace nlp {

/// A day of the year that falls by a rule of the Gregorian calendar, as one number for the tables.
struct Holiday {
    int month = 0;   ///< 0 = counted from Easter Sunday
    int day = 0;     ///< of a fixed date
    int nth = 0;     ///< 1 … 5: counted from this weekday of the month
    int weekday = 0; ///< 0 = Sunday … 6 = Saturday
    int shift = 0;   ///< days after the day counted from, -50 … 50

    constexpr bool isFixed() const { return day != 0; }

    /// 1225 is Christmas; the movable ones are below 0.
    constexpr int value() const
    {
        if (isFixed()) return month * 100 + day;
        return -((((month * 8 + nth) * 8) + weekday) * 128 + shift + 64);
    }

    static constexpr Holiday fromValue(int value)
    {
        if (value >= 0) return {.month = value / 100, .day = value % 100};
        const int packed = -value / 128;
        return {
            .month = packed / 64, .nth = packed / 8 % 8, .weekday = packed % 8, .shift = -value % 128 - 64};
    }
};

} // namespace nlp
