#pragma once

#include "nlp/Fragment.h"

namespace nlp {

// The values of words, as the tables of all languages write them; see Symbol.

constexpr int value(Unit unit) { return int(unit); }
constexpr int value(DayPart part) { return int(part); }

/// Of a DayWithPart.
constexpr int dayWith(int daysAhead, DayPart part) { return daysAhead * 16 + int(part); }

/// Of a Frequency.
constexpr int every(int interval, Unit unit) { return interval * 16 + int(unit); }

} // namespace nlp
