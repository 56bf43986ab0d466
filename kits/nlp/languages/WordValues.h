#pragma once

#include "nlp/Fragment.h"
#include "nlp/Holiday.h"

namespace nlp {

// The values of words, as the tables of all languages write them; see Symbol.

constexpr int value(Unit unit) { return int(unit); }
constexpr int value(DayPart part) { return int(part); }

/// Of a DayWithPart.
constexpr int dayWith(int daysAhead, DayPart part) { return daysAhead * 16 + int(part); }

/// Of a Frequency.
constexpr int every(int interval, Unit unit) { return interval * 16 + int(unit); }

/// Of a Holiday.
constexpr int fixedDay(int month, int day) { return nlp::Holiday{.month = month, .day = day}.value(); }
constexpr int easter(int shift) { return nlp::Holiday{.shift = shift}.value(); }
constexpr int nthWeekday(int nth, int weekday, int month, int shift = 0)
{
    return nlp::Holiday{.month = month, .nth = nth, .weekday = weekday, .shift = shift}.value();
}

} // namespace nlp
