#include "nlp/DayFragment.h"
#include "nlp/Holiday.h"
#include "nlp/Readings.h"

#include <algorithm>

namespace nlp::readings {

namespace {

using Kind = DayReference::Kind;

// A year of two digits lies in this century.
int fullYear(int year, int digits) { return digits == 2 ? 2000 + year : year; }

bool setPeriod(Fragment &fragment, Kind kind, Unit unit, int periodsAhead)
{
    if (unit < Unit::Week) return false;
    fragment.slots = DaySlot;
    fragment.day.kind = kind;
    fragment.day.offset = {0, unit};
    fragment.day.periodsAhead = std::int16_t(periodsAhead);
    return true;
}

} // namespace

bool relativeDay(const Match &match, Fragment &fragment)
{
    fragment.slots = DaySlot;
    fragment.day.offset = {match.value(Symbol::RelativeDay), Unit::Day};
    return true;
}

bool weekday(const Match &match, Fragment &fragment)
{
    const Symbol symbol = match.has(Symbol::Weekday) ? Symbol::Weekday : Symbol::AmbiguousWeekday;
    return setWeekday(fragment, Kind::Weekday, match.value(symbol), 0);
}

bool thisWeekday(const Match &match, Fragment &fragment)
{
    return setWeekday(fragment, Kind::ThisWeekday, weekdayIn(match), 0);
}

bool nextWeekday(const Match &match, Fragment &fragment)
{
    return setWeekday(fragment, Kind::NextWeekday, weekdayIn(match), match.value(Symbol::Next));
}

bool numberedWeekday(const Match &match, Fragment &fragment)
{
    const int weekday = match.value(Symbol::Number);
    return match.digits() == 1 && weekday >= 1 && weekday <= 6 &&
           setWeekday(fragment, Kind::Weekday, weekday, 0);
}

bool weekdayOfWeek(const Match &match, Fragment &fragment)
{
    if (Unit(match.value(Symbol::Unit)) != Unit::Week) return false;
    return match.has(Symbol::Next) ? nextWeekday(match, fragment) : thisWeekday(match, fragment);
}

bool weekdayWithDate(const Match &match, Fragment &fragment)
{
    // Where the two do not agree, the date is the one that somebody looked up.
    fragment = match.fragment(Symbol::Date);
    return true;
}

bool weekAfterWeekday(const Match &match, Fragment &fragment)
{
    if (Unit(match.value(Symbol::Unit)) != Unit::Week || !weekday(match, fragment)) return false;
    fragment.day.offset = {1, Unit::Week};
    return true;
}

bool weekend(const Match &match, Fragment &fragment)
{
    return setWeekday(fragment, Kind::Weekend, 6, match.value(Symbol::Next));
}

bool monthAndDay(const Match &match, Fragment &fragment)
{
    const int numbers = match.has(Symbol::Ordinal) ? 0 : 1;
    const bool hasYear = match.has(Symbol::Number, numbers);
    const int year = match.value(Symbol::Number, numbers);
    if (hasYear && !isFullYear(year, match.digits(numbers))) return false;
    // "5 may fail" and "may second the motion" are no days, "5 may" and "may 5 fails" are.
    const bool dayLeads =
        match.isBefore(match.has(Symbol::Ordinal) ? Symbol::Ordinal : Symbol::Number, Symbol::Month);
    const bool isDoubtful = dayLeads ? !match.isClosed() : match.isSpelled(Symbol::Ordinal);
    if (match.isAmbiguous(Symbol::Month) && isDoubtful) return false;
    return setDate(fragment, hasYear ? year : 0, match.value(Symbol::Month), dayNumber(match));
}

bool yearMonthDay(const Match &match, Fragment &fragment)
{
    const int year = match.value(Symbol::Number);
    if (!isFullYear(year, match.digits(0))) return false;
    return setDate(fragment, year, match.value(Symbol::Number, 1), match.value(Symbol::Number, 2));
}

bool numericDate(const Match &match, Fragment &fragment)
{
    if (match.digits(0) > 2 || match.digits(1) > 2) return false;
    const bool hasYear = match.has(Symbol::Number, 2);
    const int year = fullYear(match.value(Symbol::Number, 2), match.digits(2));
    if (hasYear && (match.digits(2) == 3 || match.digits(2) == 1 || !isFullYear(year, 4))) return false;
    // Fields of other signs than the slash may be anything unless the year tells.
    if (!match.has(Symbol::Slash) && match.digits(2) != 4) return false;
    int month = match.value(Symbol::Number, 0);
    int day = match.value(Symbol::Number, 1);
    if (match.settings().fieldOrder == FieldOrder::DayFirst) std::swap(month, day);
    const int yearOrNone = hasYear ? year : 0;
    return setDate(fragment, yearOrNone, month, day) || setDate(fragment, yearOrNone, day, month);
}

bool dayAndMonth(const Match &match, Fragment &fragment)
{
    const Fragment time = match.fragment(Symbol::Clock);
    if (!setDate(fragment, 0, match.value(Symbol::Number, 1), match.value(Symbol::Number))) return false;
    fragment.merge(time);
    return true;
}

bool numberedMonthAndDay(const Match &match, Fragment &fragment)
{
    fragment.day.periodsAhead = std::int16_t(match.value(Symbol::RelativeYear));
    return setDate(fragment, 0, match.value(Symbol::Number), match.value(Symbol::Number, 1));
}

bool firstOfYear(const Match &match, Fragment &fragment)
{
    // That of this year has passed.
    const int yearsAhead = match.value(Symbol::RelativeYear);
    return yearsAhead > 0 && setPeriod(fragment, Kind::FirstOf, Unit::Year, yearsAhead);
}

bool dayOfMonth(const Match &match, Fragment &fragment)
{
    // "The first" and "the second" may be any of several things.
    const bool saysDay = match.has(Symbol::The) && dayNumber(match) > 2;
    if (match.isSpelled(Symbol::Ordinal) && !saysDay) return false;
    const bool namesMonth = match.has(Symbol::Next) || match.has(Symbol::This);
    if (match.has(Symbol::Unit) && Unit(match.value(Symbol::Unit)) != Unit::Month) return false;
    return setDayOfMonth(fragment, dayNumber(match), namesMonth ? match.value(Symbol::Next) : -1);
}

bool dayOfMonthWithTime(const Match &match, Fragment &fragment)
{
    Fragment day;
    inner(match, fragment);
    if (!dayOfMonth(match, day)) return false;
    fragment.merge(day);
    return true;
}

bool nthWeekdayOfMonth(const Match &match, Fragment &fragment)
{
    const int nth = match.has(Symbol::Last) ? -1 : match.value(Symbol::Ordinal);
    if (match.has(Symbol::Unit) && Unit(match.value(Symbol::Unit)) != Unit::Month) return false;
    const bool namesMonth = match.has(Symbol::Next) || match.has(Symbol::This);
    setWeekday(fragment, Kind::NthWeekday, weekdayIn(match), namesMonth ? match.value(Symbol::Next) : -1);
    const bool numbersMonth = match.has(Symbol::MonthMark);
    const int month = match.value(numbersMonth ? Symbol::Number : Symbol::Month);
    if (month > 12 || (numbersMonth && month < 1)) return false;
    fragment.day.month = std::uint8_t(month);
    fragment.day.nth = std::int8_t(std::clamp(nth, -1, 6));
    return nth == -1 || (nth >= 1 && nth <= 5);
}

bool holiday(const Match &match, Fragment &fragment)
{
    const Symbol symbol = match.has(Symbol::HolidayDate) ? Symbol::HolidayDate : Symbol::Holiday;
    const Holiday holiday = Holiday::fromValue(match.value(symbol));
    const int year = match.value(Symbol::Number);
    if (match.has(Symbol::Number) && !isFullYear(year, match.digits())) return false;
    fragment.day.periodsAhead = std::int16_t(match.value(Symbol::RelativeYear));
    if (holiday.isFixed()) return setDate(fragment, year, holiday.month, holiday.day);
    setWeekday(fragment, Kind::Holiday, holiday.weekday, match.value(Symbol::RelativeYear));
    fragment.day.month = std::uint8_t(holiday.month);
    fragment.day.nth = std::int8_t(holiday.nth);
    fragment.day.year = std::int16_t(year);
    fragment.day.shift = std::int8_t(holiday.shift);
    return true;
}

bool firstOfPeriod(const Match &match, Fragment &fragment)
{
    return setPeriod(fragment, Kind::FirstOf, Unit(match.value(Symbol::Unit)), match.value(Symbol::Next));
}

bool lastOfPeriod(const Match &match, Fragment &fragment)
{
    const int periodsAhead =
        match.has(Symbol::RelativeYear) ? match.value(Symbol::RelativeYear) : match.value(Symbol::Next);
    const Unit unit = match.has(Symbol::Unit) ? Unit(match.value(Symbol::Unit)) : Unit::Year;
    if (match.has(Symbol::RelativeYear) && unit != Unit::Year) return false;
    return setPeriod(fragment, Kind::LastOf, unit, periodsAhead);
}

bool edgeOfMonth(const Match &match, Fragment &fragment)
{
    const bool isNamed = match.has(Symbol::Month);
    const int month = isNamed ? match.value(Symbol::Month) : match.value(Symbol::Number);
    const bool hasYear = isNamed && match.has(Symbol::Number);
    const int year = hasYear ? match.value(Symbol::Number) : 0;
    if (hasYear && !isFullYear(year, match.digits())) return false;
    const int day = match.has(Symbol::MonthPart) ? match.value(Symbol::MonthPart) : 1;
    if (!setDate(fragment, year, month, day)) return false;
    if (match.has(Symbol::EndOf)) fragment.day.kind = Kind::LastOf;
    return true;
}

bool partOfPeriod(const Match &match, Fragment &fragment)
{
    const Unit unit = Unit(match.value(Symbol::Unit));
    const bool namesPeriod = match.has(Symbol::Next) || match.has(Symbol::This);
    const int periodsAhead = match.value(Symbol::Next);
    if (unit == Unit::Month)
        return setDayOfMonth(fragment, match.value(Symbol::MonthPart), namesPeriod ? periodsAhead : -1);
    constexpr int middleOfWeek = 3;
    return unit == Unit::Week && periodsAhead > 0 &&
           setWeekday(fragment, Kind::NextWeekday, middleOfWeek, periodsAhead);
}

bool lastDayOfPeriod(const Match &match, Fragment &fragment)
{
    if (Unit(match.value(Symbol::Unit)) != Unit::Day) return false;
    return setPeriod(fragment, Kind::LastOf, Unit(match.value(Symbol::Unit, 1)), match.value(Symbol::Next));
}

bool comingPeriod(const Match &match, Fragment &fragment)
{
    const int periodsAhead = match.has(Symbol::Next) ? match.value(Symbol::Next) : 1;
    return setPeriod(fragment, Kind::FirstOf, Unit(match.value(Symbol::Unit)), periodsAhead);
}

bool endOfPeriod(const Match &match, Fragment &fragment)
{
    const Unit unit = Unit(match.value(Symbol::PeriodEnd));
    fragment.slots = DaySlot;
    return unit == Unit::Day || setPeriod(fragment, Kind::LastOf, unit, 0);
}

bool daysAhead(const Match &match, Fragment &fragment)
{
    fragment.slots = DaySlot;
    fragment.day.offset = match.fragment(Symbol::Quantity).length;
    return !fragment.day.offset.isBelowOneDay();
}

bool minutesAhead(const Match &match, Fragment &fragment)
{
    fragment.slots = DaySlot | ClockSlot;
    fragment.day.offset = match.fragment(Symbol::Quantity).length;
    return fragment.day.offset.isBelowOneDay();
}

bool quantityBesideDay(const Match &match, Fragment &fragment)
{
    Fragment day = match.fragment(Symbol::Day);
    if (match.has(Symbol::Holiday) && !holiday(match, day)) return false;
    Quantity length = match.fragment(Symbol::Quantity).length;
    if (match.has(Symbol::Unit)) length = {1, Unit(match.value(Symbol::Unit))};
    if (day.slots != DaySlot || length.isBelowOneDay()) return false;
    if (day.day.kind == Kind::FirstOf || day.day.kind == Kind::LastOf) return false;
    if (match.has(Symbol::Before)) length.amount = -length.amount;
    if (day.day.offset.amount != 0) {
        if (day.day.offset.unit != Unit::Day || length.unit > Unit::Week) return false;
        length = {day.day.offset.amount + length.amount * (length.unit == Unit::Week ? 7 : 1), Unit::Day};
    }
    fragment = day;
    fragment.day.offset = length;
    return true;
}

} // namespace nlp::readings
