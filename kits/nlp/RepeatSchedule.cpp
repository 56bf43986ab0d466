#include "nlp/RepeatSchedule.h"

#include <array>
#include <bit>

namespace nlp {

using namespace std::chrono;

namespace {

// Three months in a row may lack a fifth Monday.
constexpr days furthestFirstDay{7 * 18};

std::wstring_view frequencyName(Unit unit)
{
    switch (unit) {
    case Unit::Week:
        return L"WEEKLY";
    case Unit::Month:
        return L"MONTHLY";
    case Unit::Year:
        return L"YEARLY";
    default:
        return L"DAILY";
    }
}

std::wstring compactDate(LocalDay day)
{
    const year_month_day date{day};
    const int number =
        int(date.year()) * 10000 + int(unsigned(date.month())) * 100 + int(unsigned(date.day()));
    return std::to_wstring(100000000 + number).substr(1);
}

} // namespace

std::optional<LocalDay> RepeatSchedule::firstDay(LocalDay earliest) const
{
    if (m_repeat.monthDay < 0) {
        const DayReference reference{.kind = DayReference::Kind::LastOf, .offset = {0, Unit::Month}};
        return Calendar{earliest, 1}.resolve(reference, Calendar::Today::Included);
    }
    if (m_repeat.monthDay != 0) {
        DayReference reference;
        reference.kind = m_repeat.month != 0 ? DayReference::Kind::Date : DayReference::Kind::DayOfMonth;
        reference.month = m_repeat.month;
        reference.day = std::uint8_t(m_repeat.monthDay);
        reference.periodsAhead = m_repeat.month != 0 ? 0 : -1;
        return Calendar{earliest, 1}.resolve(reference, Calendar::Today::Included);
    }
    if (m_repeat.month != 0) {
        DayReference reference;
        reference.kind = DayReference::Kind::NthWeekday;
        reference.month = m_repeat.month;
        reference.weekday = std::uint8_t(std::countr_zero(m_repeat.weekdays));
        reference.nth = m_repeat.nth;
        reference.periodsAhead = -1;
        return Calendar{earliest, 1}.resolve(reference, Calendar::Today::Included);
    }
    for (LocalDay day = earliest; day <= earliest + furthestFirstDay; day += days{1})
        if (meets(day)) return Calendar::validated(year_month_day{day});
    return std::nullopt;
}

std::wstring RepeatSchedule::rule(int count, std::optional<LocalDay> until) const
{
    std::wstring rule = L"RRULE:FREQ=";
    rule += frequencyName(m_repeat.unit);
    rule += L";INTERVAL=" + std::to_wstring(m_repeat.interval);
    if (count > 0)
        rule += L";COUNT=" + std::to_wstring(count);
    else if (until)
        rule += L";UNTIL=" + compactDate(*until);
    appendDays(rule);
    return rule;
}

bool RepeatSchedule::meets(LocalDay day) const
{
    const year_month_day date{day};
    const int dayOfMonth(unsigned(date.day()));
    if (m_repeat.nth > 0 && (dayOfMonth - 1) / 7 + 1 != m_repeat.nth) return false;
    if (m_repeat.nth < 0 && year_month_day{day + weeks{1}}.month() == date.month()) return false;
    return m_repeat.weekdays == 0 || (m_repeat.weekdays & (1U << weekday{day}.c_encoding())) != 0;
}

void RepeatSchedule::appendDays(std::wstring &rule) const
{
    constexpr std::array<std::wstring_view, 7> names{L"SU", L"MO", L"TU", L"WE", L"TH", L"FR", L"SA"};
    if (m_repeat.month != 0) rule += L";BYMONTH=" + std::to_wstring(m_repeat.month);
    if (m_repeat.monthDay != 0) rule += L";BYMONTHDAY=" + std::to_wstring(m_repeat.monthDay);
    if (m_repeat.weekdays == 0) return;
    std::wstring_view separator = L";BYDAY=";
    for (std::size_t i = 1; i <= names.size(); ++i) { // from Monday on
        if ((m_repeat.weekdays & (1U << (i % 7))) == 0) continue;
        rule += separator;
        if (m_repeat.nth != 0) rule += std::to_wstring(m_repeat.nth);
        rule += names[i % 7];
        separator = L",";
    }
}

} // namespace nlp
