#include "nlp/Match.h"
#include "nlp/Readings.h"

#include <algorithm>

namespace nlp::readings {

namespace {

using Certainty = ClockReference::Certainty;

bool hasPart(const Match &match)
{
    return match.has(Symbol::DayPart) || match.has(Symbol::FreeDayPart) || match.has(Symbol::ClockPart);
}

DayPart partOf(const Match &match)
{
    return DayPart(match.value(match.has(Symbol::DayPart)     ? Symbol::DayPart
                               : match.has(Symbol::ClockPart) ? Symbol::ClockPart
                                                              : Symbol::FreeDayPart));
}

bool setClock(ClockReference &clock, int hour, int minute, Certainty certainty)
{
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59) return false;
    if (hour == 0 || hour > 12) certainty = Certainty::Certain;
    clock = {std::uint8_t(hour), std::uint8_t(minute), certainty};
    return true;
}

bool setHalfDayClock(ClockReference &clock, int hour, int minute, bool isAfternoon)
{
    if (hour < 1 || hour > 12) return false;
    return setClock(clock, hour % 12 + (isAfternoon ? 12 : 0), minute, Certainty::Certain);
}

bool fill(const Match &match, Fragment &fragment, int hour, int minute, Certainty certainty)
{
    fragment.slots = ClockSlot;
    if (match.has(Symbol::Meridiem))
        return setHalfDayClock(fragment.clock, hour, minute, match.value(Symbol::Meridiem) == 1);
    if (!setClock(fragment.clock, hour, minute, certainty)) return false;
    if (!hasPart(match)) return true;
    fragment.slots |= PartSlot;
    fragment.part = partOf(match);
    fragment.clock = fragment.clock.within(fragment.part);
    return true;
}

// The two ends of a range, each a time product or a bare number.
bool rangeEnd(const Match &match, bool isFirst, ClockReference &clock)
{
    const bool bothProducts = match.has(Symbol::Clock, 1);
    const bool bothNumbers = match.has(Symbol::Number, 1);
    if (bothProducts) return clock = match.fragment(Symbol::Clock, isFirst ? 0 : 1).clock, true;
    if (bothNumbers)
        return setClock(clock, match.value(Symbol::Number, isFirst ? 0 : 1), 0, Certainty::Spoken);
    const bool numberIsFirst = match.isBefore(Symbol::Number, Symbol::Clock);
    if (numberIsFirst != isFirst) return clock = match.fragment(Symbol::Clock).clock, true;
    return setClock(clock, match.value(Symbol::Number), 0, Certainty::Spoken);
}

} // namespace

bool writtenTime(const Match &match, Fragment &fragment)
{
    if (match.has(Symbol::Number, 1) && match.digits(1) != 2) return false;
    const bool isPadded = match.digits(0) == 2 && match.value(Symbol::Number) < 10;
    return fill(match, fragment, match.value(Symbol::Number), match.value(Symbol::Number, 1),
                isPadded ? Certainty::Certain : Certainty::Written);
}

bool spokenTime(const Match &match, Fragment &fragment)
{
    const bool isAmbiguous = match.has(Symbol::AmbiguousHour);
    const int hour = isAmbiguous ? match.value(Symbol::AmbiguousHour) : match.value(Symbol::Number);
    const int further = match.value(Symbol::Number, isAmbiguous ? 0 : 1);
    const int minute = match.has(Symbol::Half)      ? 30
                       : match.has(Symbol::Quarter) ? 15 * std::max(further, 1)
                                                    : further;
    inner(match, fragment);
    Fragment time;
    if (!fill(match, time, hour, minute, Certainty::Spoken)) return false;
    fragment.merge(time);
    return true;
}

bool halfPast(const Match &match, Fragment &fragment)
{
    return fill(match, fragment, match.value(Symbol::Number), 30, Certainty::Spoken);
}

bool quarterPast(const Match &match, Fragment &fragment)
{
    return fill(match, fragment, match.value(Symbol::Number), 15, Certainty::Spoken);
}

bool quarterTo(const Match &match, Fragment &fragment)
{
    const int hour = match.value(Symbol::Number);
    if (hour < 1) return false;
    return fill(match, fragment, hour == 1 ? 12 : hour - 1, 45, Certainty::Spoken);
}

bool minutesPast(const Match &match, Fragment &fragment)
{
    return fill(match, fragment, match.value(Symbol::Number, 1), match.value(Symbol::Number, 0),
                Certainty::Spoken);
}

// Digits are a range: "at 10 to 6".
bool minutesTo(const Match &match, Fragment &fragment)
{
    const int minutes = match.value(Symbol::Number, 0);
    const int hour = match.value(Symbol::Number, 1);
    if (!match.isSpelled(Symbol::Number) || minutes < 1 || minutes > 29 || hour < 1) return false;
    return fill(match, fragment, hour == 1 ? 12 : hour - 1, 60 - minutes, Certainty::Spoken);
}

bool minutesLacking(const Match &match, Fragment &fragment)
{
    const bool minutesLead = match.isBefore(Symbol::Lacking, Symbol::HourMark);
    const int missing = match.value(Symbol::Number, minutesLead ? 0 : 1);
    const int minutes = match.has(Symbol::Quarter) ? 15 * missing : missing;
    const int hour = match.value(Symbol::Number, minutesLead ? 1 : 0);
    if (minutes < 1 || minutes > 29 || hour < 1) return false;
    return fill(match, fragment, hour == 1 ? 12 : hour - 1, 60 - minutes, Certainty::Spoken);
}

bool spelledTime(const Match &match, Fragment &fragment)
{
    const int minutes = match.value(Symbol::Number, 1);
    const bool isSpelled = match.isSpelled(Symbol::Number) && match.isSpelled(Symbol::Number, 1);
    return isSpelled && minutes >= 10 &&
           fill(match, fragment, match.value(Symbol::Number), minutes, Certainty::Spoken);
}

bool namedTime(const Match &match, Fragment &fragment)
{
    const bool mayBeAdjective = match.isAmbiguous(Symbol::NamedTime) && !match.has(Symbol::At);
    if (mayBeAdjective && !match.isClosed()) return false;
    return fill(match, fragment, match.value(Symbol::NamedTime), 0, Certainty::Certain);
}

bool clockRange(const Match &match, Fragment &fragment)
{
    match.forEachFragment([&](const Fragment &time) { fragment.merge(time); });
    fragment.slots |= ClockSlot | EndClockSlot;
    return rangeEnd(match, true, fragment.clock) && rangeEnd(match, false, fragment.endClock);
}

bool namedTimeToHour(const Match &match, Fragment &fragment)
{
    fragment.slots = ClockSlot | EndClockSlot;
    return setClock(fragment.clock, match.value(Symbol::NamedTime), 0, Certainty::Certain) &&
           setClock(fragment.endClock, match.value(Symbol::Number), 0, Certainty::Spoken);
}

bool dayPart(const Match &match, Fragment &fragment)
{
    inner(match, fragment);
    fragment.slots |= PartSlot;
    fragment.part = partOf(match);
    if (fragment.slots & ClockSlot) fragment.clock = fragment.clock.within(fragment.part);
    const bool hasOwnTime = fragment.part != DayPart::Dawn && fragment.part != DayPart::Midnight;
    return hasOwnTime || (fragment.slots & ClockSlot) != 0;
}

bool eveningOfDay(const Match &match, Fragment &fragment)
{
    return partOf(match) == DayPart::Night && dayPart(match, fragment);
}

bool dayAndHour(const Match &match, Fragment &fragment)
{
    const int hour = match.value(Symbol::Number);
    if (match.has(Symbol::DayWithPart))
        dayWithPart(match, fragment);
    else if (match.has(Symbol::RelativeDay))
        relativeDay(match, fragment);
    else if (hasPart(match))
        dayPart(match, fragment);
    else
        inner(match, fragment);
    if ((fragment.slots & ClockSlot) != 0 || hour < 1 || hour > 12 || match.digits() > 2) return false;
    fragment.slots |= ClockSlot;
    fragment.clock = ClockReference{std::uint8_t(hour), 0, Certainty::Spoken}.within(fragment.part);
    return true;
}

bool timeAndDay(const Match &match, Fragment &fragment)
{
    inner(match, fragment);
    return (match.fragment(Symbol::Combined).slots & ClockSlot) == 0;
}

bool dayAndHours(const Match &match, Fragment &fragment)
{
    const auto isHour = [&](int nth) { return match.value(Symbol::Number, nth) <= 12; };
    return isHour(0) && isHour(1) && clockRange(match, fragment);
}

bool partAndHours(const Match &match, Fragment &fragment)
{
    Fragment hours = match.fragment(Symbol::ClockRange);
    if (!match.has(Symbol::ClockRange) && !dayAndHours(match, hours)) return false;
    const bool namesDay = match.has(Symbol::DayWithPart)
                              ? dayWithPart(match, fragment)
                              : (match.has(Symbol::This) ? thisPart : dayPart)(match, fragment);
    fragment.merge(hours);
    // An afternoon from eleven to two begins before noon.
    const int start = hours.clock.hour;
    if (fragment.part == DayPart::Afternoon && (start == 10 || start == 11)) {
        fragment.clock = hours.clock;
        fragment.clock.certainty = Certainty::Certain;
    }
    return namesDay;
}

bool dayWithPart(const Match &match, Fragment &fragment)
{
    const int value = match.value(Symbol::DayWithPart);
    fragment.slots = DaySlot | PartSlot;
    fragment.day.offset = {value / 16, Unit::Day};
    fragment.part = DayPart(value % 16);
    return true;
}

bool thisPart(const Match &match, Fragment &fragment)
{
    fragment.slots = DaySlot;
    return dayPart(match, fragment);
}

} // namespace nlp::readings
