#include "nlp/Fragment.h"

namespace nlp {

namespace {

int hourWithin(DayPart part, int hour)
{
    switch (part) {
    case DayPart::Dawn:
    case DayPart::Morning:
        return hour % 12;
    case DayPart::Noon:
        return hour < 4 ? hour + 12 : hour;
    case DayPart::Afternoon:
        return hour % 12 + 12;
    case DayPart::Evening:
        return hour % 12 < 3 ? hour % 12 + 24 : hour + 12;
    case DayPart::Night:
    case DayPart::Midnight:
        return hour % 12 < 5 ? hour % 12 + 24 : hour + 12;
    case DayPart::None:
        break;
    }
    return hour;
}

} // namespace

ClockReference ClockReference::within(DayPart part) const
{
    // The midnight of an evening is the one that ends it.
    const bool isAfterMidnight = hour == 0 && part >= DayPart::Evening;
    if (isAfterMidnight) return {24, minute, Certainty::Certain};
    if (certainty == Certainty::Certain || part == DayPart::None) return *this;
    return {std::uint8_t(hourWithin(part, hour)), minute, Certainty::Certain};
}

bool RepeatReference::leaveOut(std::uint8_t excepted)
{
    constexpr std::uint8_t everyWeekday = 0b1111111;
    const bool isDaily = unit == Unit::Day;
    const bool isByWeekdays = unit == Unit::Week && weekdays != 0;
    if (!isDaily && !isByWeekdays) return false;
    weekdays = std::uint8_t((isDaily ? everyWeekday : weekdays) & ~excepted);
    if (isDaily && interval == 1) unit = Unit::Week;
    return weekdays != 0;
}

void Fragment::merge(const Fragment &other)
{
    const unsigned added = other.slots & ~slots;
    slots |= added;
    if (added & DaySlot) day = other.day;
    if (added & PartSlot) part = other.part;
    if (added & ClockSlot) clock = other.clock;
    if (added & EndDaySlot) endDay = other.endDay;
    if (added & EndClockSlot) endClock = other.endClock;
    if (added & LengthSlot) length = other.length;
    if (added & UntilSlot) untilDay = other.untilDay;
    if (added & RepeatSlot) repeat = other.repeat;
    if (added & CountSlot) count = other.count;
    if (added & ExceptSlot) exceptWeekdays = other.exceptWeekdays;
    if (added & ReminderSlot) {
        leads = other.leads;
        leadCount = other.leadCount;
    }
}

} // namespace nlp
