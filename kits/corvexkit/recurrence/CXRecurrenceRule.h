#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/recurrence/NumberSet.h"
#include "corvexkit/recurrence/WeekdaySet.h"
#include "corvexkit/time/Instant.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <variant>

/// When something repeats: the RECUR value of RFC 5545 section 3.3.10, with the SKIP of RFC 7529 for the
/// Gregorian calendar. A plain value that allocates nothing; an empty set is a part that is not given.
class CXRecurrenceRule {
public:
    enum class Frequency : std::uint8_t { Secondly, Minutely, Hourly, Daily, Weekly, Monthly, Yearly };

    /// What becomes of a day that a month or year does not have (RFC 7529 section 4.1).
    enum class Skip : std::uint8_t {
        Omit,     ///< it is left out
        Backward, ///< the day before it takes its place
        Forward,  ///< the day after it takes its place
    };

    /// The last moment, included: a whole day, a wall-clock reading, or an instant.
    using Until = std::variant<Day, LocalTime, Instant>;

    /// Reads a rule, with "RRULE:" before it or without. Case, the order of the parts, white space around
    /// names and values, and empty parts do not matter. A part that is unknown, comes twice, holds a value
    /// outside its bounds or must not stand with the others is an error whose sentence names the
    /// character, counted from 1.
    static Result<CXRecurrenceRule> parse(QStringView text);

    /// The canonical text, which reads back as an equal rule: "RRULE:FREQ=DAILY;INTERVAL=1". Interval
    /// always, lists ascending, weekdays from Monday.
    QString toIcal() const;

    /// An upper bound of what it yields on one day.
    std::int64_t mostOccurrencesOnADay() const;

    Frequency frequency = Frequency::Daily;
    Skip skip = Skip::Omit;
    int interval = 1;         ///< 1 to 999,999,999
    std::optional<int> count; ///< 1 to 999,999,999; never together with `until`
    std::optional<Until> until;
    std::optional<std::chrono::weekday> weekStart; ///< WKST

    NumberSet<0, 60> bySecond; ///< 60 counts as 59: instants have no leap seconds
    NumberSet<0, 59> byMinute;
    NumberSet<0, 23> byHour;
    NumberSet<1, 12> byMonth;
    OrdinalSet<31> byMonthDay;
    OrdinalSet<53> byWeekNo;
    OrdinalSet<366> byYearDay;
    OrdinalSet<366> bySetPos;
    WeekdaySet byDay;

    /// On how many days of each week, whichever they are: 1 to 7, or 0 when not given. An addition to the
    /// RFC, written X-TIMES, for FREQ=WEEKLY alone. No date of the rule depends on it.
    int timesInWeekly = 0;

    bool operator==(const CXRecurrenceRule &) const = default;
};
