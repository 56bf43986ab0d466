#include "nlp/Calendar.h"

namespace nlp {

using namespace std::chrono;

namespace {

constexpr year lastYear{9999};

int weekdayNumber(LocalDay day) { return int(weekday{day}.c_encoding()); }

std::optional<LocalDay> nthWeekdayOf(year_month month, const DayReference &reference)
{
    const weekday wanted{reference.weekday};
    if (reference.nth < 0) return LocalDay{month / wanted[last]};
    const year_month_weekday day = month / wanted[unsigned(reference.nth)];
    return day.ok() ? std::optional{LocalDay{day}} : std::nullopt;
}

// By the computus of the Gregorian calendar.
LocalDay easterSunday(year year)
{
    const int y = int(year);
    const int century = y / 100;
    const int moonCorrection = century - century / 4 - (8 * century + 13) / 25;
    const int epact = (19 * (y % 19) + moonCorrection + 15) % 30;
    const int isLate = epact == 29 || (epact == 28 && y % 19 > 10) ? 1 : 0;
    const LocalDay fullMoon = LocalDay{year / March / 21} + days{epact - isLate};
    return fullMoon + days{7 - weekdayNumber(fullMoon)};
}

} // namespace

std::optional<LocalDay> Calendar::validated(year_month_day date)
{
    if (!date.ok() || date.year() > lastYear || date.year() < year{1}) return std::nullopt;
    return local_days{date};
}

std::optional<LocalDay> Calendar::resolve(const DayReference &reference, Today plainWeekday) const
{
    const auto day = unmoved(reference, plainWeekday);
    if (!day || reference.offset.amount == 0) return day;
    const auto result = moved(*day, reference.offset);
    return result && *result >= m_today ? result : std::nullopt;
}

std::optional<LocalDay> Calendar::unmoved(const DayReference &reference, Today plainWeekday) const
{
    using Kind = DayReference::Kind;
    switch (reference.kind) {
    case Kind::Ahead:
        return m_today;
    case Kind::Weekday:
        return nextWeekday(reference.weekday, plainWeekday);
    case Kind::ThisWeekday:
        return nextWeekday(reference.weekday, Today::Included);
    case Kind::NextWeekday: {
        const LocalDay start = startOfWeek(reference.periodsAhead);
        return start + days{(reference.weekday - weekdayNumber(start) + 7) % 7};
    }
    case Kind::Date:
        return date(reference);
    case Kind::DayOfMonth:
        return dayOfMonth(reference.day, reference.periodsAhead);
    case Kind::NthWeekday:
        return nthWeekday(reference);
    case Kind::FirstOf:
        return firstOf(reference.offset.unit, reference.periodsAhead);
    case Kind::LastOf:
        if (reference.month != 0) return lastOfMonth(reference);
        return firstOf(reference.offset.unit, reference.periodsAhead + 1) - days{1};
    case Kind::Weekend: {
        const LocalDay saturday = nextWeekday(6, Today::Included);
        return saturday + weeks{reference.periodsAhead};
    }
    case Kind::Holiday:
        return holiday(reference);
    }
    return std::nullopt;
}

std::optional<LocalDay> Calendar::moved(LocalDay day, const Quantity &by)
{
    const year_month_day date{day};
    switch (by.unit) {
    case Unit::Day:
        return validated(year_month_day{day + days{by.amount}});
    case Unit::Week:
        return validated(year_month_day{day + weeks{by.amount}});
    default:
        break;
    }
    const auto month = year_month{date.year(), date.month()} +
                       (by.unit == Unit::Month ? months{by.amount} : months{by.amount * 12});
    const year_month_day sameDay = month / date.day();
    return validated(sameDay.ok() ? sameDay : year_month_day{month / last});
}

LocalDay Calendar::nextWeekday(int weekday, Today today) const
{
    const int ahead = (weekday - weekdayNumber(m_today) + 7) % 7;
    return m_today + days{ahead == 0 && today == Today::Excluded ? 7 : ahead};
}

LocalDay Calendar::startOfWeek(int weeksAhead) const
{
    const int intoWeek = (weekdayNumber(m_today) - (m_firstWeekday - 1) + 7) % 7;
    return m_today - days{intoWeek} + weeks{weeksAhead};
}

LocalDay Calendar::firstOf(Unit unit, int periodsAhead) const
{
    if (unit == Unit::Week) return startOfWeek(periodsAhead);
    const year_month_day today{m_today};
    if (unit == Unit::Year) return local_days{(today.year() + years{periodsAhead}) / January / 1};
    return local_days{(year_month{today.year(), today.month()} + months{periodsAhead}) / 1};
}

std::optional<LocalDay> Calendar::date(const DayReference &reference) const
{
    const auto inMonth = month{reference.month} / day{reference.day};
    if (reference.year != 0) return validated(year{reference.year} / inMonth);
    // Eight years lie between 29 February 1896 and 1904; no day is rarer.
    const year current = year_month_day{m_today}.year();
    const year first = reference.periodsAhead > 0 ? current + years{reference.periodsAhead} : current;
    for (year candidate = first; candidate <= first + years{8}; ++candidate) {
        const auto found = validated(candidate / inMonth);
        if (found && (*found >= m_today || reference.periodsAhead > 0)) return found;
    }
    return std::nullopt;
}

std::optional<LocalDay> Calendar::nthWeekday(const DayReference &reference) const
{
    const year_month_day today{m_today};
    const year_month current{today.year(), today.month()};
    const bool isFixed = reference.month == 0 && reference.periodsAhead >= 0;
    // The 29th of February falls on a given weekday once in 28 years, or in 40 around 2100.
    const months furthest = isFixed ? months{0} : reference.month == 0 ? months{4} : months{12 * 40};
    const months nearest{isFixed ? reference.periodsAhead : 0};
    for (months ahead = nearest; ahead <= nearest + furthest; ++ahead) {
        const year_month month = current + ahead;
        if (reference.month != 0 && unsigned(month.month()) != reference.month) continue;
        const auto day = nthWeekdayOf(month, reference);
        if (day && (isFixed || *day >= m_today)) return validated(year_month_day{*day});
    }
    return std::nullopt;
}

std::optional<LocalDay> Calendar::lastOfMonth(const DayReference &reference) const
{
    const year current = year_month_day{m_today}.year();
    const auto lastOf = [&](year candidate) { return LocalDay{candidate / month{reference.month} / last}; };
    if (reference.year != 0) return validated(year_month_day{lastOf(year{reference.year})});
    const LocalDay day = lastOf(current);
    return validated(year_month_day{day >= m_today ? day : lastOf(current + years{1})});
}

std::optional<LocalDay> Calendar::holiday(const DayReference &reference) const
{
    const bool isFixed = reference.year != 0;
    const year current =
        isFixed ? year{reference.year} : year_month_day{m_today}.year() + years{reference.periodsAhead};
    for (const year candidate : {current, current + years{1}}) {
        const auto base = reference.month == 0 ? easterSunday(candidate)
                                               : nthWeekdayOf(candidate / month{reference.month}, reference);
        if (!base) continue;
        const LocalDay day = *base + days{reference.shift};
        if (day >= m_today || isFixed) return validated(year_month_day{day});
    }
    return std::nullopt;
}

std::optional<LocalDay> Calendar::dayOfMonth(int dayNumber, int monthsAhead) const
{
    const year_month_day today{m_today};
    const year_month current{today.year(), today.month()};
    const day wanted{unsigned(dayNumber)};
    if (monthsAhead >= 0) return validated((current + months{monthsAhead}) / wanted);
    const int first = wanted >= today.day() ? 0 : 1;
    // No two months in a row are short.
    for (int ahead = first; ahead <= first + 1; ++ahead)
        if (const auto found = validated((current + months{ahead}) / wanted)) return found;
    return std::nullopt;
}

} // namespace nlp
