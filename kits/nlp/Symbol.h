#pragma once

#include <cstdint>

namespace nlp {

/// What grammar patterns are made of. The terminals are the parts of speech that a language gives its
/// words, and the shapes that the tokenizer gives to digits and signs; the products are what rules make.
///
/// The order of the products is part of the grammar: a rule's product stands after the first symbol of its
/// pattern, so that one ascending pass over the symbols at a place of the text finds everything there.
enum class Symbol : std::uint8_t {
    None,  ///< an unknown word or sign; ends a pattern in a rule
    Plain, ///< a word or idiom the language knows and means nothing by; it keeps its parts from being read

    // Digits and signs. A sign is a terminal only where it touches what stands on both sides, but Comma.
    Number,
    Ordinal, ///< -1 = the last
    Colon,
    Slash,
    Dot,
    FullStop, ///< a dot that touches only what stands before
    Hyphen,
    AtSign,   ///< "@" before a time
    TimeMark, ///< the T between the date and the time of ISO 8601
    Comma,

    // Words that carry a value.
    Weekday,          ///< 0 = Sunday … 6 = Saturday
    AmbiguousWeekday, ///< the same, for a word that means something else, too ("sun"); it needs company
    PluralWeekday,    ///< the same, for a word that says "each of them"
    Month,            ///< 1 … 12, plus `AmbiguousWord` for a word that means something else, too ("may")
    Unit,             ///< a nlp::Unit
    RelativeDay,      ///< days from today
    DayPart,          ///< a nlp::DayPart, for a word that needs company ("morning")
    FreeDayPart,      ///< the same, for a word that says when on its own
    DayWithPart,      ///< days from today × 16 + a nlp::DayPart ("tonight")
    RelativeYear,     ///< years from this one
    Meridiem,         ///< 0 before noon, 1 after
    NamedTime,        ///< the hour, plus `AmbiguousWord` for an adjective ("midnight")
    AmbiguousHour,    ///< the hour, for a word that means something else, too; it needs company
    Frequency,        ///< interval × 16 + nlp::Unit, plus `AmbiguousWord` for an adjective ("weekly")
    Remind,           ///< 1 when the word alone asks for a reminder, 0 when it needs to be told how early
    Next,             ///< weeks, months … ahead
    Holiday,          ///< a nlp::Holiday
    HolidayDate,      ///< the same, for a name that says it is a day ("christmas eve")
    PeriodEnd,        ///< a nlp::Unit, for a word that names its end ("eod")
    MonthPart,        ///< the day of the month that stands for a part of it ("mid")
    ClockPart,        ///< a nlp::DayPart, for a word that needs a time or a day before it ("晚")
    Article,          ///< "a": the amount it stands for

    // Words that only join.
    OClock,
    Half,
    Quarter,
    Past,
    Lacking, ///< what is missing to the full hour
    To,
    From,
    Onwards,
    Between,
    At,
    By,
    On,
    In,
    Later,
    Time, ///< "time" behind an amount: "in 2 days time"
    Every,
    EverySkipping,
    Except,
    Excepted, ///< what makes an exception of the days before it ("除外")
    Besides,  ///< what ends an exception in languages that put it around the days ("以外")
    EveryPart,
    Other,
    This,
    Last,
    Ago,
    The,
    Of,
    And,
    Or,
    For,
    Until,
    Times,
    Before,
    After,
    Advance,
    EndOf,
    StartOf,
    LastDay,
    Fortnight,
    Weekend,
    FreeWeekend, ///< one that says when on its own
    WeekendDays, ///< one that names both days
    Workday,
    PastDay,
    YearMark,
    WeekMark,
    MonthMark,
    DayMark,
    HourMark,
    MinuteMark,
    Counter,
    CountMark,
    FunctionWord, ///< a word that may follow a date without belonging to it ("with")
    Measure,      ///< a thing that is counted ("pages"): a number before it is no date
    Gauge,        ///< what is told in decimals ("温度"): "4.9-5.1" behind it are no days
    ScoreWord,    ///< a word after which numbers are no times ("ratio")
    Street,       ///< the end of a street's name: the number before it is that of a house
    Zone,         ///< a time zone: the time before it is another place's
    Possessive,   ///< whose it is: a day behind it says which
    MoveTo,       ///< to what day another thing is moved
    Mover,        ///< "postpone": days from one to another are those of another thing
    Copula,       ///< "is": a day on either side is a statement
    Lunar,        ///< of the lunar calendar
    Vague,        ///< a span of a year that begins on no known day ("春天")

    // Products.
    Quantity,
    AnyWeekday,
    Clock,
    ClockRange,
    Date,
    LunarDate,
    NthDay,
    Day,
    WeekdayTail,
    Weekdays,
    Exception,
    DayRange,
    EveryUnit,
    Leads,
    Repeat,
    Moment,
    Limit,
    Duration,
    Reminder,
    Part,
    Combined,
    Bygone,  ///< days gone by, which no task is planned for
    Unclear, ///< several days or times, another place's, or which one a thing is: no single date
};

inline constexpr auto firstProduct = Symbol::Quantity;
inline constexpr int symbolCount = int(Symbol::Unclear) + 1;

/// Added to the value of a word that also means something that is no date.
inline constexpr int AmbiguousWord = 0x1000;

/// Values of a PluralWeekday that name several days.
inline constexpr int EachWorkday = 7;
inline constexpr int EachWeekendDay = 8;

} // namespace nlp
