#include "nlp/DayFragment.h"

#include <array>

namespace nlp::readings {

namespace {

constexpr std::array<int, 13> longestMonth{0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

bool isLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

} // namespace

bool isFullYear(int year, int digits) { return (digits == 4 || digits == 0) && year >= 1900 && year <= 9999; }

bool setDate(Fragment &fragment, int year, int month, int day)
{
    if (month < 1 || month > 12 || day < 1 || day > longestMonth[std::size_t(month)]) return false;
    if (month == 2 && day == 29 && year != 0 && !isLeap(year)) return false;
    fragment.slots = DaySlot;
    fragment.day.kind = DayReference::Kind::Date;
    fragment.day.year = std::int16_t(year);
    fragment.day.month = std::uint8_t(month);
    fragment.day.day = std::uint8_t(day);
    return true;
}

bool setWeekday(Fragment &fragment, DayReference::Kind kind, int weekday, int weeksAhead)
{
    fragment.slots |= DaySlot;
    fragment.day.kind = kind;
    fragment.day.weekday = std::uint8_t(weekday);
    fragment.day.periodsAhead = std::int16_t(weeksAhead);
    return true;
}

bool setDayOfMonth(Fragment &fragment, int day, int monthsAhead)
{
    if (day < 1 || day > 31) return false;
    fragment.slots = DaySlot;
    fragment.day.kind = DayReference::Kind::DayOfMonth;
    fragment.day.day = std::uint8_t(day);
    fragment.day.periodsAhead = std::int16_t(monthsAhead);
    return true;
}

void setRange(Fragment &fragment) { fragment.slots = DaySlot | EndDaySlot; }

int dayNumber(const Match &match, int nth)
{
    return match.has(Symbol::Ordinal) ? match.value(Symbol::Ordinal, nth) : match.value(Symbol::Number, nth);
}

int weekdayIn(const Match &match)
{
    if (match.has(Symbol::Weekday)) return match.value(Symbol::Weekday);
    return match.fragment(Symbol::AnyWeekday).day.weekday;
}

} // namespace nlp::readings
