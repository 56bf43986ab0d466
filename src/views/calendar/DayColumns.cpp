#include "views/calendar/DayColumns.h"

#include "calendar/CalendarPage.h"
#include "views/wording/CalendarDay.h"

#include <algorithm>

DayColumns::DayColumns(const CalendarPage &page, Weekends weekends, const QLocale &locale)
{
    const QList<Qt::DayOfWeek> working = locale.weekdays();
    for (int day = 0; day < std::min(page.dayCount, 7); ++day) {
        const auto weekday = Qt::DayOfWeek(dateOf(page.firstDay + std::chrono::days{day}).dayOfWeek());
        if (weekends == Weekends::Shown || page.dayCount == 1 || working.contains(weekday))
            m_days.push_back(day);
    }
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
