#pragma once

#include "nlp/Match.h"

namespace nlp::readings {

// What the readings of days and of ranges of days write into a fragment. Those that answer false have written
// nothing: there is no such day.

/// Numbers written in words have no digits.
bool isFullYear(int year, int digits);
/// `year` 0: of no year.
bool setDate(Fragment &fragment, int year, int month, int day);
bool setWeekday(Fragment &fragment, DayReference::Kind kind, int weekday, int weeksAhead);
/// `monthsAhead` -1: of the coming month that has it.
bool setDayOfMonth(Fragment &fragment, int day, int monthsAhead);
/// Its days are written already.
void setRange(Fragment &fragment);

/// The number of a day, as an ordinal where there are some.
int dayNumber(const Match &match, int nth = 0);
int weekdayIn(const Match &match);

} // namespace nlp::readings
