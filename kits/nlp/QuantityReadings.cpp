#include "nlp/Match.h"
#include "nlp/Readings.h"

#include <algorithm>

namespace nlp::readings {

namespace {

constexpr int largestAmount = 9999;

bool setQuantity(Quantity &quantity, int amount, Unit unit)
{
    if (amount < 1 || amount > largestAmount) return false;
    quantity = {amount, unit};
    return true;
}

// Parts of an hour are read in minutes.
bool setMinutes(Quantity &quantity, int tenthsOfHour)
{
    return setQuantity(quantity, tenthsOfHour * 6, Unit::Minute);
}

Unit unitOf(const Match &match) { return Unit(match.value(Symbol::Unit)); }

int amountOf(const Match &match)
{
    if (match.has(Symbol::Number)) return match.value(Symbol::Number);
    return match.has(Symbol::Article) ? match.value(Symbol::Article) : 1;
}

} // namespace

bool quantity(const Match &match, Fragment &fragment)
{
    return setQuantity(fragment.length, amountOf(match), unitOf(match));
}

// "3月" is March and "2026年" a year.
bool uncountedQuantity(const Match &match, Fragment &fragment)
{
    const bool isDate =
        unitOf(match) == Unit::Month || (unitOf(match) == Unit::Year && amountOf(match) >= 1000);
    return !isDate && quantity(match, fragment);
}

bool decimalQuantity(const Match &match, Fragment &fragment)
{
    if (unitOf(match) != Unit::Hour || match.digits(1) != 1) return false;
    const int whole = std::min(match.value(Symbol::Number), largestAmount);
    return setMinutes(fragment.length, whole * 10 + match.value(Symbol::Number, 1));
}

bool halfQuantity(const Match &match, Fragment &fragment)
{
    switch (unitOf(match)) {
    case Unit::Hour:
        return setMinutes(fragment.length, 5);
    case Unit::Month:
        return setQuantity(fragment.length, 15, Unit::Day);
    case Unit::Year:
        return setQuantity(fragment.length, 6, Unit::Month);
    default:
        return false;
    }
}

bool quantityAndHalf(const Match &match, Fragment &fragment)
{
    const int whole = std::min(amountOf(match), largestAmount);
    return unitOf(match) == Unit::Hour && setMinutes(fragment.length, whole * 10 + 5);
}

bool hoursAndMinutes(const Match &match, Fragment &fragment)
{
    if (unitOf(match) != Unit::Hour) return false;
    const int hours = match.has(Symbol::Article) ? 1 : std::min(match.value(Symbol::Number), largestAmount);
    const int minutes = match.value(Symbol::Number, match.has(Symbol::Article) ? 0 : 1);
    return minutes < 60 && setQuantity(fragment.length, hours * 60 + minutes, Unit::Minute);
}

bool duration(const Match &match, Fragment &fragment)
{
    fragment.slots = DurationSlots;
    fragment.length = match.fragment(Symbol::Quantity).length;
    return true;
}

bool fortnight(const Match &, Fragment &fragment) { return setQuantity(fragment.length, 2, Unit::Week); }

bool uncountedDuration(const Match &match, Fragment &fragment)
{
    return duration(match, fragment) && fragment.length.isBelowOneDay();
}

bool durationAfterTime(const Match &match, Fragment &fragment)
{
    const unsigned time = match.fragment(Symbol::Clock).slots;
    if (!uncountedDuration(match, fragment)) return false;
    inner(match, fragment);
    return time != 0;
}

bool lead(const Match &match, Fragment &fragment)
{
    fragment.slots = ReminderSlot;
    fragment.leads[fragment.leadCount++] = match.fragment(Symbol::Quantity).length;
    if (match.has(Symbol::Quantity, 1))
        fragment.leads[fragment.leadCount++] = match.fragment(Symbol::Quantity, 1).length;
    const Fragment &further = match.fragment(Symbol::Leads);
    for (int i = 0; i < further.leadCount; ++i) {
        if (fragment.leadCount == fragment.leads.size()) return false;
        fragment.leads[fragment.leadCount++] = further.leads[std::size_t(i)];
    }
    const auto isTooVague = [](const Quantity &quantity) { return quantity.unit > Unit::Week; };
    return std::none_of(fragment.leads.begin(), fragment.leads.begin() + fragment.leadCount, isTooVague);
}

bool reminder(const Match &match, Fragment &fragment)
{
    const bool isEnough = match.value(Symbol::Remind) != 0 || match.has(Symbol::Leads);
    inner(match, fragment);
    fragment.slots = ReminderSlot;
    return isEnough;
}

bool inner(const Match &match, Fragment &fragment)
{
    match.forEachFragment([&](const Fragment &part) { fragment.merge(part); });
    return true;
}

bool bygone(const Match &, Fragment &fragment)
{
    fragment.slots = BygoneSlot;
    return true;
}

bool unclear(const Match &, Fragment &fragment)
{
    fragment.slots = UnclearSlot;
    return true;
}

bool movedDay(const Match &, Fragment &fragment)
{
    fragment.slots = UnclearSlot | MovedSlot;
    return true;
}

bool unclearDay(const Match &, Fragment &fragment)
{
    fragment.slots = UnclearSlot | UnclearDaySlot;
    return true;
}

} // namespace nlp::readings
