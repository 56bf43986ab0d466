#pragma once

#include <array>

namespace nlp {

struct TimeOfDay {
    int hour = 0;   ///< 0 … 23
    int minute = 0; ///< 0 … 59
};

enum class FieldOrder { DayFirst, MonthFirst };
enum class ClockFace { TwelveHours, TwentyFourHours };

/// What a person has set up and the reading of a title depends on.
struct Settings {
    TimeOfDay morning{9, 0};
    TimeOfDay afternoon{13, 0};
    TimeOfDay evening{17, 0};
    TimeOfDay night{20, 0};
    int firstWeekday = 1; ///< 1 = Sunday … 7 = Saturday
    ClockFace clockFace = ClockFace::TwelveHours;
    FieldOrder fieldOrder = FieldOrder::DayFirst;
};

} // namespace nlp
