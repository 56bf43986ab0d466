#include "nlp/DayFragment.h"
#include "nlp/Readings.h"

namespace nlp::readings {

namespace {

using Kind = DayReference::Kind;
constexpr int lastDayOfAnyMonth = 31;

} // namespace

bool dayRange(const Match &match, Fragment &fragment)
{
    const bool areDays = match.has(Symbol::Day, 1);
    const bool areWeekdays = match.has(Symbol::AnyWeekday, 1);
    const bool weekdayLeads =
        match.isBefore(Symbol::AnyWeekday, Symbol::Day) && match.has(Symbol::AnyWeekday);
    const Symbol first = areWeekdays || (!areDays && weekdayLeads) ? Symbol::AnyWeekday : Symbol::Day;
    const Symbol last = areDays || (!areWeekdays && weekdayLeads) ? Symbol::Day : Symbol::AnyWeekday;
    setRange(fragment);
    fragment.day = match.fragment(first).day;
    fragment.endDay = match.fragment(last, first == last ? 1 : 0).day;
    return true;
}

bool neighbouringDays(const Match &match, Fragment &fragment)
{
    const DayReference &first = match.fragment(Symbol::Day, 0).day;
    const DayReference &last = match.fragment(Symbol::Day, 1).day;
    const bool areCounted = first.kind == Kind::Ahead && last.kind == Kind::Ahead;
    if (!areCounted || last.offset.unit != Unit::Day || first.offset.unit != Unit::Day) return false;
    return last.offset.amount == first.offset.amount + 1 && dayRange(match, fragment);
}

bool neighbouringDaysOfMonth(const Match &match, Fragment &fragment)
{
    return daysOfMonthRange(match, fragment) && fragment.endDay.day == fragment.day.day + 1;
}

bool partedDays(const Match &match, Fragment &fragment)
{
    const auto isWeekday = [&](int nth) {
        return match.fragment(Symbol::Day, nth).day.kind == Kind::Weekday;
    };
    Fragment range;
    const bool areWeekdays = isWeekday(0) && isWeekday(1); // they are listed as such
    return !areWeekdays && !neighbouringDays(match, range) && unclearDay(match, fragment);
}

bool partedDaysOfMonth(const Match &match, Fragment &fragment)
{
    Fragment range;
    return !neighbouringDaysOfMonth(match, range) && unclearDay(match, fragment);
}

// "Friday the 13th movie".
bool unclosedDay(const Match &match, Fragment &fragment)
{
    return !match.isClosed() && unclearDay(match, fragment);
}

// "周一三五" are weekdays, and "friday 50 pushups" and "friday two calls" say how many.
bool weekdayBeforeNumber(const Match &match, Fragment &fragment)
{
    const bool mayBeDay =
        !match.isSpelled(Symbol::Number) && match.value(Symbol::Number) <= lastDayOfAnyMonth;
    if (!mayBeDay && !match.isClosed()) return false;
    return !match.isIdeographic() && unclearDay(match, fragment);
}

bool weekdaysOfWeek(const Match &match, Fragment &fragment)
{
    if (Unit(match.value(Symbol::Unit)) != Unit::Week) return false;
    const int weeksAhead = match.value(Symbol::Next);
    const int first = match.fragment(Symbol::AnyWeekday, 0).day.weekday;
    const int last = match.fragment(Symbol::AnyWeekday, 1).day.weekday;
    setWeekday(fragment, Kind::NextWeekday, last, weeksAhead);
    fragment.endDay = fragment.day;
    setWeekday(fragment, Kind::NextWeekday, first, weeksAhead);
    setRange(fragment);
    return true;
}

bool weekendDays(const Match &match, Fragment &fragment)
{
    setWeekday(fragment, Kind::Weekday, 0, 0);
    fragment.endDay = fragment.day;
    weekend(match, fragment);
    setRange(fragment);
    return true;
}

bool daysOfMonthRange(const Match &match, Fragment &fragment)
{
    const int month =
        match.value(Symbol::Month) + (match.has(Symbol::Month) ? 0 : match.value(Symbol::Number));
    const int days = match.has(Symbol::Month) ? 0 : 1;
    const int last = dayNumber(match, days + 1);
    const int yearPlace = match.has(Symbol::Ordinal) ? 0 : days + 2;
    const int year = match.value(Symbol::Number, yearPlace);
    if (match.has(Symbol::Number, yearPlace) && !isFullYear(year, match.digits(yearPlace))) return false;
    if (last <= dayNumber(match, days) || !setDate(fragment, year, month, last)) return false;
    fragment.endDay = fragment.day;
    if (!setDate(fragment, year, month, dayNumber(match, days))) return false;
    setRange(fragment);
    return true;
}

bool numberedDayRange(const Match &match, Fragment &fragment)
{
    const auto number = [&](int nth) {
        return match.digits(nth) <= 2 ? match.value(Symbol::Number, nth) : 0;
    };
    const int first = number(0) * 100 + number(1);
    const int last = number(2) * 100 + number(3);
    const bool isOverNewYear = number(0) == 12 && number(2) == 1;
    if (last <= first && !isOverNewYear) return false;
    if (!setDate(fragment, 0, number(2), number(3))) return false;
    fragment.endDay = fragment.day;
    if (!setDate(fragment, 0, number(0), number(1))) return false;
    setRange(fragment);
    return true;
}

bool daysOfComingMonthRange(const Match &match, Fragment &fragment)
{
    const int first = match.value(Symbol::Number, 0);
    const int last = match.value(Symbol::Number, 1);
    if (last <= first || !setDayOfMonth(fragment, last, -1)) return false;
    fragment.endDay = fragment.day;
    if (!setDayOfMonth(fragment, first, -1)) return false;
    setRange(fragment);
    return true;
}

bool dayToDayOfMonth(const Match &match, Fragment &fragment)
{
    const Fragment &first = match.fragment(Symbol::Day);
    if (first.day.kind != Kind::Date && first.day.kind != Kind::DayOfMonth) return false;
    const int last = dayNumber(match);
    if (last <= first.day.day || !setDayOfMonth(fragment, last, -1)) return false;
    fragment.endDay = fragment.day;
    fragment.day = first.day;
    setRange(fragment);
    return true;
}

} // namespace nlp::readings
