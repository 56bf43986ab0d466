#include "views/calendar/DayColumns.h"

#include "views/wording/CalendarDay.h"

#include <algorithm>

DayColumns::DayColumns(const CalendarPage &page, Weekends weekends, const QLocale &locale)
{
    for (int day = 0; day < std::min(page.dayCount, 7); ++day)
        if (show(page.firstDay + std::chrono::days{day}, page.kind, weekends, locale)) m_days.push_back(day);
}

bool DayColumns::show(Day day, CalendarPage::Kind kind, Weekends weekends, const QLocale &locale)
{
    const auto weekday = Qt::DayOfWeek(dateOf(day).dayOfWeek());
    return weekends == Weekends::Shown || kind == CalendarPage::Kind::SingleDay ||
           locale.weekdays().contains(weekday);
}

Day DayColumns::nextShown(Day day, CalendarPage::Kind kind, Weekends weekends, const QLocale &locale)
{
    for (int later = 0; later < 7; ++later)
        if (const Day other = day + std::chrono::days{later}; show(other, kind, weekends, locale))
            return other;
    return day;
}

void DayColumns::place(int left, int width)
{
    m_left = left;
    m_width = std::max(width, count());
}

std::optional<int> DayColumns::columnOf(int day) const
{
    const auto found = std::ranges::find(m_days, day);
    return found == m_days.end() ? std::nullopt : std::optional{int(found - m_days.begin())};
}

std::optional<DayColumns::Range> DayColumns::columnsOf(int firstDay, int lastDay) const
{
    const auto first = std::ranges::lower_bound(m_days, firstDay);
    const auto behind = std::ranges::upper_bound(m_days, lastDay);
    if (first >= behind) return std::nullopt;
    return Range{int(first - m_days.begin()), int(behind - m_days.begin()) - 1};
}

int DayColumns::at(int x) const
{
    int column = 0;
    while (column + 1 < count() && x >= right(column))
        ++column;
    return column;
}
