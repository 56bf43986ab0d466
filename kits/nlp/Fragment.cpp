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
    if (added & ReminderSlot) {
        leads = other.leads;
        leadCount = other.leadCount;
    }
}

} // namespace nlp
