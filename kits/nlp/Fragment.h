#pragma once

#include <array>
#include <cstdint>

namespace nlp {

enum class Unit : std::uint8_t { Minute, Hour, Day, Week, Month, Year };

/// The settings have a time for all but Dawn and Midnight.
enum class DayPart : std::uint8_t { None, Dawn, Morning, Noon, Afternoon, Evening, Night, Midnight };

/// A span of time: minutes up to years.
struct Quantity {
    int amount = 0;
    Unit unit = Unit::Day;

    constexpr bool isBelowOneDay() const { return unit == Unit::Minute || unit == Unit::Hour; }
};

/// A day as the text names it, before it is looked up in the calendar.
struct DayReference {
    enum class Kind : std::uint8_t {
        Ahead,       ///< `offset` from today
        Weekday,     ///< the coming `weekday`, not today
        ThisWeekday, ///< the coming `weekday`, may be today
        NextWeekday, ///< `weekday` of the week `periodsAhead` weeks on
        Date,        ///< `month` and `day`; year 0 is the next such day, or that `periodsAhead` years on
        DayOfMonth,  ///< `day` of the month `periodsAhead` months on; -1 is the next such day
        NthWeekday,  ///< the `nth` `weekday` of `month`; of month 0 as DayOfMonth has it
        FirstOf,     ///< the first day of the week, month or year `periodsAhead` on
        LastOf,      ///< the last day of the same, or of `month`: the next such day, or that of `year`
        Weekend,     ///< the coming Saturday, or the one `periodsAhead` weeks after it
        Holiday,     ///< `shift` days from the `nth` `weekday` of `month`, of month 0 from Easter Sunday: the
                     ///< next such day, or that `periodsAhead` years on
    };
    Kind kind = Kind::Ahead;
    std::uint8_t weekday = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::int8_t nth = 0; ///< 1 … 5, -1 = the last
    std::int16_t year = 0;
    std::int16_t periodsAhead = 0;
    std::int8_t shift = 0; ///< of a Holiday
    Quantity offset;       ///< what to add to the day itself
};

/// A time of day as the text names it.
struct ClockReference {
    enum class Certainty : std::uint8_t {
        Certain, ///< as it stands
        Written, ///< "5:30": one of two unless the clock face has 24 hours
        Spoken,  ///< "at 5": one of two on any clock face
    };
    std::uint8_t hour = 0; ///< from 24 on: of the next day, for the end of a night
    std::uint8_t minute = 0;
    Certainty certainty = Certainty::Certain;

    /// The one of the two possible times that lies in `part` of the day.
    ClockReference within(DayPart part) const;
};

/// How often, in the terms of RFC 5545, section 3.3.10.
struct RepeatReference {
    int interval = 1;
    Unit unit = Unit::Day;
    std::uint8_t weekdays = 0; ///< bit 0 = Sunday
    std::int8_t nth = 0;       ///< which of these weekdays of the month, 0 = each, -1 = the last
    std::int8_t monthDay = 0;  ///< 0 = that of the start, -1 = the last
    std::uint8_t month = 0;    ///< 0 = that of the start
    bool needsCompany = false; ///< said with a word that may be an adjective
    bool isList = false;       ///< weekdays named one by one

    /// Leaves these weekdays out; false when that makes no rule.
    bool leaveOut(std::uint8_t excepted);
};

/// The parts that make up a task's date. A phrase fills some of them.
enum Slot : unsigned {
    DaySlot = 1 << 0,
    PartSlot = 1 << 1,
    ClockSlot = 1 << 2,
    EndDaySlot = 1 << 3,
    EndClockSlot = 1 << 4,
    LengthSlot = 1 << 5,
    RepeatSlot = 1 << 6,
    CountSlot = 1 << 7,
    UntilSlot = 1 << 8,
    ReminderSlot = 1 << 9,
    BygoneSlot = 1 << 10,
    UnclearSlot = 1 << 11,    ///< no single date is meant
    UnclearDaySlot = 1 << 12, ///< nor is it known on which day a time is
    MovedSlot = 1 << 13,      ///< the days of the text are those of another thing
    ExceptSlot = 1 << 14,     ///< days that the repeat leaves out
    DurationSlots = LengthSlot | EndDaySlot | EndClockSlot, ///< a length leaves no other end
};

/// The meaning of a phrase. Only what `slots` names is meant.
struct Fragment {
    unsigned slots = 0;
    DayReference day;
    DayReference endDay;   ///< the last day of a range
    DayReference untilDay; ///< the last day of a repeat
    ClockReference clock;  ///< unless the day is an offset below one day
    ClockReference endClock;
    DayPart part = DayPart::None;
    Quantity length; ///< of a duration, or a bare amount
    RepeatReference repeat;
    std::uint8_t exceptWeekdays = 0; ///< bits as in RepeatReference::weekdays
    int count = 0;                   ///< how many times it repeats
    std::array<Quantity, 3> leads{}; ///< of a reminder: how long before
    std::uint8_t leadCount = 0;

    /// Takes over what `other` fills and this does not.
    void merge(const Fragment &other);
};

} // namespace nlp
