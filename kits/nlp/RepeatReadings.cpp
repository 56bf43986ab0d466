#include "nlp/Match.h"
#include "nlp/Readings.h"

#include <algorithm>
#include <bit>

namespace nlp::readings {

namespace {

constexpr std::uint8_t mondayToFriday = 0b0111110;
constexpr std::uint8_t saturdayAndSunday = 0b1000001;
constexpr int longestInterval = 999;

std::uint8_t weekdayBit(int weekday) { return std::uint8_t(1U << weekday); }

// Of a PluralWeekday.
std::uint8_t weekdayBits(int plural)
{
    if (plural == EachWorkday) return mondayToFriday;
    return plural == EachWeekendDay ? saturdayAndSunday : weekdayBit(plural);
}

bool setRepeat(Fragment &fragment, int interval, Unit unit)
{
    if (interval < 1 || interval > longestInterval || unit < Unit::Day) return false;
    fragment.slots |= RepeatSlot;
    fragment.repeat.interval = interval;
    fragment.repeat.unit = unit;
    return true;
}

// "周一三五": one is named, those after it are numbered.
bool weekdayNumberList(const Match &match, Fragment &fragment)
{
    fragment.day = match.fragment(Symbol::AnyWeekday).day;
    const int first = fragment.day.weekday;
    const std::uint8_t further = match.fragment(Symbol::WeekdayTail).repeat.weekdays;
    fragment.repeat.weekdays = weekdayBit(first) | further;
    return first != 0 && further > weekdayBit(first) && (further & (weekdayBit(first + 1) - 1)) == 0;
}

// The weekday named first and the one after it.
bool areNeighbours(const Fragment &weekdays)
{
    const int first = weekdays.day.weekday;
    return weekdays.repeat.weekdays == (weekdayBit(first) | weekdayBit((first + 1) % 7));
}

bool setWeekly(Fragment &fragment, const Fragment &weekdays)
{
    fragment.repeat.weekdays = weekdays.repeat.weekdays;
    return setRepeat(fragment, 1, Unit::Week);
}

int intervalOf(const Match &match)
{
    if (match.has(Symbol::Other)) return 2;
    if (match.has(Symbol::Ordinal)) return match.value(Symbol::Ordinal);
    return match.has(Symbol::Number) ? match.value(Symbol::Number) : 1;
}

bool setEveryDate(const Match &match, Fragment &fragment, const DayReference &date)
{
    fragment = match.fragment(Symbol::EveryUnit);
    if (fragment.slots == 0 && !setRepeat(fragment, 1, Unit::Year)) return false;
    fragment.repeat.month = date.month;
    fragment.repeat.monthDay = std::int8_t(date.day);
    return fragment.repeat.unit == Unit::Year;
}

} // namespace

bool weekdays(const Match &match, Fragment &fragment)
{
    const RepeatReference &further = match.fragment(Symbol::Weekdays).repeat;
    const bool isRising = weekdayNumberList(match, fragment);
    fragment.repeat.weekdays |= further.weekdays;
    // Two of them, one numbered ("周二四"), have rules of their own.
    const bool isPlain =
        !match.has(Symbol::WeekdayTail) || (isRising && std::popcount(fragment.repeat.weekdays) >= 3);
    fragment.repeat.isList = isPlain && (!match.has(Symbol::Weekdays) || further.isList);
    return true;
}

bool weekdaySpan(const Match &match, Fragment &fragment)
{
    const int first = match.fragment(Symbol::AnyWeekday, 0).day.weekday;
    const int last = match.fragment(Symbol::AnyWeekday, 1).day.weekday;
    for (int weekday = first; weekday != last; weekday = (weekday + 1) % 7)
        fragment.repeat.weekdays |= weekdayBit(weekday);
    fragment.repeat.weekdays |= weekdayBit(last);
    return first != last;
}

bool weekdayNumbers(const Match &match, Fragment &fragment)
{
    if (!match.isIdeographic() || match.value(Symbol::Number) < 1) return false;
    for (int numbers = match.value(Symbol::Number); numbers > 0; numbers /= 10) {
        if (numbers % 10 < 1 || numbers % 10 > 6) return false;
        fragment.repeat.weekdays |= weekdayBit(numbers % 10);
    }
    fragment.repeat.weekdays |= match.fragment(Symbol::WeekdayTail).repeat.weekdays;
    return true;
}

bool listedWeekdays(const Match &match, Fragment &fragment)
{
    const Fragment &list = match.fragment(Symbol::Weekdays);
    return list.repeat.isList && std::popcount(list.repeat.weekdays) >= 3 && setWeekly(fragment, list);
}

bool listedWeekdayNumbers(const Match &match, Fragment &fragment)
{
    Fragment list;
    return weekdayNumberList(match, list) && !areNeighbours(list) && setWeekly(fragment, list);
}

bool neighbouringWeekdays(const Match &match, Fragment &fragment)
{
    Fragment list = match.fragment(Symbol::Weekdays);
    if (match.has(Symbol::WeekdayTail) && !weekdayNumberList(match, list)) return false;
    if (!(list.repeat.isList || match.has(Symbol::WeekdayTail)) || !areNeighbours(list)) return false;
    fragment.slots = DaySlot | EndDaySlot;
    fragment.day = list.day;
    fragment.endDay = list.day;
    fragment.endDay.weekday = std::uint8_t((list.day.weekday + 1) % 7);
    return true;
}

bool partedWeekdays(const Match &match, Fragment &fragment)
{
    const Fragment &list = match.fragment(Symbol::Weekdays);
    fragment.slots = UnclearSlot | UnclearDaySlot;
    return list.repeat.isList && std::popcount(list.repeat.weekdays) == 2 && !areNeighbours(list);
}

bool everyUnit(const Match &match, Fragment &fragment)
{
    return setRepeat(fragment, intervalOf(match), Unit(match.value(Symbol::Unit)));
}

bool everySkippedUnit(const Match &match, Fragment &fragment)
{
    return setRepeat(fragment, intervalOf(match) + 1, Unit(match.value(Symbol::Unit)));
}

bool frequency(const Match &match, Fragment &fragment)
{
    const int value = match.value(Symbol::Frequency);
    fragment.repeat.needsCompany = match.isAmbiguous(Symbol::Frequency);
    return setRepeat(fragment, value / 16, Unit(value % 16));
}

bool repeatAlone(const Match &match, Fragment &fragment)
{
    inner(match, fragment);
    return !fragment.repeat.needsCompany || match.isClosed();
}

bool everyWeekdays(const Match &match, Fragment &fragment)
{
    fragment = match.fragment(Symbol::EveryUnit);
    fragment.repeat.weekdays = match.fragment(Symbol::Weekdays).repeat.weekdays;
    if (fragment.slots != 0) return fragment.repeat.unit == Unit::Week;
    // "Every 2nd friday" skips one, but none lies before the first.
    const bool isFirstOfMonth = match.has(Symbol::Ordinal) && match.value(Symbol::Ordinal) == 1;
    fragment.repeat.nth = isFirstOfMonth ? 1 : 0;
    return setRepeat(fragment, intervalOf(match), isFirstOfMonth ? Unit::Month : Unit::Week);
}

bool weekdaysEveryWeek(const Match &match, Fragment &fragment)
{
    const bool isWeekly = everyWeekdays(match, fragment);
    fragment.repeat.isList = true;
    return isWeekly && (!fragment.repeat.needsCompany || match.isClosed());
}

bool unclearRepeat(const Match &match, Fragment &fragment)
{
    return (match.fragment(Symbol::Combined).slots & RepeatSlot) != 0 && unclearDay(match, fragment);
}

bool dayBesideRepeat(const Match &match, Fragment &fragment)
{
    const Symbol repeat = match.has(Symbol::Repeat) ? Symbol::Repeat : Symbol::Combined;
    return !match.fragment(repeat).repeat.isList && unclearDay(match, fragment);
}

bool weekdaysEveryDay(const Match &match, Fragment &fragment)
{
    const RepeatReference &every = match.fragment(Symbol::EveryUnit).repeat;
    fragment.repeat.weekdays =
        match.has(Symbol::Workday) ? mondayToFriday : match.fragment(Symbol::Weekdays).repeat.weekdays;
    return every.unit == Unit::Day && every.interval == 1 && setRepeat(fragment, 1, Unit::Week);
}

bool weekdaysEveryPart(const Match &match, Fragment &fragment)
{
    everyPart(match, fragment);
    fragment.repeat.weekdays =
        match.has(Symbol::Workday) ? mondayToFriday : match.fragment(Symbol::Weekdays).repeat.weekdays;
    return setRepeat(fragment, 1, Unit::Week);
}

bool everyNthWeekdayOfMonth(const Match &match, Fragment &fragment)
{
    const int nth = match.has(Symbol::Last) ? -1 : match.value(Symbol::Ordinal);
    const RepeatReference &every = match.fragment(Symbol::EveryUnit).repeat;
    const Unit unit = match.has(Symbol::EveryUnit) ? every.unit : Unit(match.value(Symbol::Unit));
    if (unit != Unit::Month || nth < -1 || nth == 0 || nth > 5) return false;
    fragment.repeat.nth = std::int8_t(nth);
    fragment.repeat.weekdays = weekdayBit(match.fragment(Symbol::AnyWeekday).day.weekday);
    return setRepeat(fragment, every.interval, Unit::Month);
}

bool everyNthDay(const Match &match, Fragment &fragment)
{
    const DayReference &day = match.fragment(Symbol::NthDay).day;
    if (day.kind != DayReference::Kind::NthWeekday || day.periodsAhead > 0) return false;
    fragment = match.fragment(Symbol::EveryUnit);
    const Unit unit = day.month != 0 ? Unit::Year : Unit::Month;
    if (fragment.slots == 0 && !setRepeat(fragment, 1, unit)) return false;
    fragment.repeat.month = day.month;
    fragment.repeat.nth = day.nth;
    fragment.repeat.weekdays = weekdayBit(day.weekday);
    return fragment.repeat.unit == unit;
}

bool unclearNthWeekday(const Match &match, Fragment &fragment)
{
    return match.fragment(Symbol::EveryUnit).repeat.unit != Unit::Month && unclearDay(match, fragment);
}

bool pluralWeekday(const Match &match, Fragment &fragment)
{
    fragment.repeat.weekdays = std::uint8_t(weekdayBits(match.value(Symbol::PluralWeekday)) |
                                            match.fragment(Symbol::Weekdays).repeat.weekdays);
    fragment.repeat.needsCompany = true;
    return setRepeat(fragment, 1, Unit::Week);
}

bool everyDayExcept(const Match &match, Fragment &fragment)
{
    if (match.has(Symbol::Workday)) {
        setRepeat(fragment, 1, Unit::Week);
        fragment.repeat.weekdays = mondayToFriday;
    } else if (match.has(Symbol::EveryPart)) {
        everyPart(match, fragment);
    } else {
        fragment = match.fragment(Symbol::EveryUnit);
    }
    return fragment.repeat.leaveOut(match.fragment(Symbol::Exception).exceptWeekdays);
}

bool exceptWeekdays(const Match &match, Fragment &fragment)
{
    fragment.slots = ExceptSlot;
    fragment.exceptWeekdays =
        match.has(Symbol::FreeWeekend) ? saturdayAndSunday : match.fragment(Symbol::Weekdays).repeat.weekdays;
    return true;
}

bool everyWorkday(const Match &match, Fragment &fragment)
{
    inner(match, fragment);
    fragment.repeat.weekdays = mondayToFriday;
    return setRepeat(fragment, 1, Unit::Week);
}

bool everyWeekend(const Match &, Fragment &fragment)
{
    fragment.repeat.weekdays = saturdayAndSunday;
    return setRepeat(fragment, 1, Unit::Week);
}

bool everyPart(const Match &match, Fragment &fragment)
{
    const Symbol symbol = match.has(Symbol::EveryPart) ? Symbol::EveryPart
                          : match.has(Symbol::DayPart) ? Symbol::DayPart
                                                       : Symbol::FreeDayPart;
    fragment.slots = PartSlot;
    fragment.part = DayPart(match.value(symbol));
    return setRepeat(fragment, 1, Unit::Day);
}

bool everyDayOfMonth(const Match &match, Fragment &fragment)
{
    const int day = match.has(Symbol::Ordinal) ? match.value(Symbol::Ordinal) : match.value(Symbol::Number);
    const bool saysMonth = match.has(Symbol::Unit) || (match.has(Symbol::EveryUnit) && match.isClosed());
    if (match.isSpelled(Symbol::Ordinal) && !saysMonth) return false;
    fragment = match.fragment(Symbol::EveryUnit);
    if (fragment.slots == 0 && !setRepeat(fragment, 1, Unit::Month)) return false;
    if (match.has(Symbol::Unit) && Unit(match.value(Symbol::Unit)) != Unit::Month) return false;
    fragment.repeat.monthDay = std::int8_t(std::clamp(day, 0, 32));
    return fragment.repeat.unit == Unit::Month && day >= 1 && day <= 31;
}

bool everyLastDayOfMonth(const Match &match, Fragment &fragment)
{
    fragment = match.fragment(Symbol::EveryUnit);
    if (fragment.slots == 0 && !setRepeat(fragment, 1, Unit::Month)) return false;
    if (match.has(Symbol::Unit) && Unit(match.value(Symbol::Unit)) != Unit::Day) return false;
    if (match.has(Symbol::Unit, 1) && Unit(match.value(Symbol::Unit, 1)) != Unit::Month) return false;
    fragment.repeat.monthDay = -1;
    return fragment.repeat.unit == Unit::Month;
}

bool everyEdgeOfMonth(const Match &match, Fragment &fragment)
{
    fragment.repeat.monthDay = match.has(Symbol::EndOf) ? -1 : 1;
    return Unit(match.value(Symbol::Unit)) == Unit::Month && setRepeat(fragment, 1, Unit::Month);
}

bool everyDate(const Match &match, Fragment &fragment)
{
    const DayReference &date = match.fragment(Symbol::Date).day;
    return date.year == 0 && date.periodsAhead == 0 && setEveryDate(match, fragment, date);
}

bool everyHoliday(const Match &match, Fragment &fragment)
{
    Fragment named;
    holiday(match, named);
    return named.day.kind == DayReference::Kind::Date && setEveryDate(match, fragment, named.day);
}

bool timesARound(const Match &match, Fragment &fragment)
{
    return match.fragment(Symbol::EveryUnit).repeat.unit != Unit::Day && unclearDay(match, fragment);
}

bool untilDay(const Match &match, Fragment &fragment)
{
    fragment.slots = UntilSlot;
    fragment.untilDay = match.fragment(Symbol::Day).day;
    return true;
}

bool untilMonth(const Match &match, Fragment &fragment)
{
    fragment.slots = UntilSlot;
    fragment.untilDay.kind = DayReference::Kind::Date;
    const int month = match.value(match.has(Symbol::Month) ? Symbol::Month : Symbol::Number);
    fragment.untilDay.month = std::uint8_t(month);
    fragment.untilDay.day = 1;
    return month >= 1 && month <= 12;
}

bool countOfTimes(const Match &match, Fragment &fragment)
{
    fragment.slots = CountSlot;
    fragment.count = match.value(Symbol::Number);
    return fragment.count >= 1 && fragment.count <= longestInterval;
}

} // namespace nlp::readings
