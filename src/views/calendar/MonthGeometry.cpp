#include "views/calendar/MonthGeometry.h"

#include "views/theme/Metrics.h"

#include <algorithm>

namespace {

constexpr int weekNumbersWidth = 36;
constexpr int weekdayNamesHeight = 28;
constexpr int dayNumberHeight = 28;
constexpr int barRowHeight = 22;
constexpr int barGap = 2;
constexpr int cellPadding = 4;
constexpr int weekLength = 7;

int weekOf(const LaneBar &bar) { return bar.firstDay / weekLength; }

} // namespace

MonthGeometry::MonthGeometry(const CalendarPage &page, const DayColumns &columns, WeekNumbers weekNumbers,
                             const QSize &viewport)
    : m_columns(columns)
    , m_viewport(viewport)
    , m_weeks(std::max(1, page.dayCount / weekLength))
    , m_gutter(weekNumbers == WeekNumbers::Shown ? Metrics::scaled(weekNumbersWidth) : 0)
    , m_headHeight(Metrics::scaled(weekdayNamesHeight))
{
    m_columns.place(m_gutter, viewport.width() - m_gutter);
}

QRect MonthGeometry::head(int column) const
{
    return {m_columns.left(column), 0, m_columns.right(column) - m_columns.left(column), m_headHeight};
}

int MonthGeometry::rowTop(int week) const
{
    return m_headHeight + std::max(0, m_viewport.height() - m_headHeight) * week / m_weeks;
}

QRect MonthGeometry::cell(int week, int column) const
{
    const int top = rowTop(week);
    return {m_columns.left(column), top, m_columns.right(column) - m_columns.left(column),
            rowTop(week + 1) - top};
}

QRect MonthGeometry::dayNumber(int week, int column) const
{
    QRect line = cell(week, column);
    line.setHeight(std::min(line.height(), Metrics::scaled(dayNumberHeight)));
    return line;
}

int MonthGeometry::lanes() const
{
    const int room = rowTop(1) - rowTop(0) - Metrics::scaled(dayNumberHeight) - barGap;
    return std::max(0, room / Metrics::scaled(barRowHeight));
}

// The last lane of the day; without any, beside its number.
QRect MonthGeometry::moreRow(int week, int column) const
{
    if (lanes() > 0) return laneRow(week, {column, column}, lanes() - 1);
    const QRect line = dayNumber(week, column);
    const QRect beside = line.adjusted(line.height(), 0, -cellPadding, -barGap);
    return beside.width() > line.height() ? beside : line;
}

QRect MonthGeometry::laneRow(int week, DayColumns::Range columns, int lane) const
{
    const int left = m_columns.left(columns.first) + cellPadding;
    const int right = m_columns.right(columns.last) - cellPadding;
    const int top = rowTop(week) + Metrics::scaled(dayNumberHeight) + lane * Metrics::scaled(barRowHeight);
    return {left, top, right - left, Metrics::scaled(barRowHeight) - barGap};
}

// How many lanes of each day show bars: one less where the last says how many more there are.
std::vector<int> MonthGeometry::shownLanes(const std::vector<LaneBar> &bars) const
{
    std::vector<int> shown(std::size_t(m_weeks * weekLength), lanes());
    for (const LaneBar &each : bars)
        for (int day = each.firstDay; day <= each.lastDay && each.lane >= lanes(); ++day)
            shown[std::size_t(day)] = lanes() - 1;
    return shown;
}

CalendarPlaces MonthGeometry::places(const std::vector<LaneBar> &bars, const CalendarPage &page) const
{
    const std::vector<int> shown = shownLanes(bars);
    std::vector<int> hidden(shown.size(), 0);
    CalendarPlaces places;
    for (const LaneBar &each : bars) {
        const int first = each.firstDay % weekLength;
        const auto range = m_columns.columnsOf(first, first + each.lastDay - each.firstDay);
        if (!range) continue;
        const bool hasRoom = std::all_of(shown.begin() + each.firstDay, shown.begin() + each.lastDay + 1,
                                         [&each](int lanes) { return each.lane < lanes; });
        if (hasRoom)
            places.items.push_back({each.item, laneRow(weekOf(each), *range, each.lane),
                                    ItemPlace::Shape::Bar, each.beginsBefore, each.goesOn});
        else
            for (int day = each.firstDay; day <= each.lastDay; ++day)
                ++hidden[std::size_t(day)];
    }
    for (int day = 0; day < int(hidden.size()); ++day) {
        const auto column = m_columns.columnOf(day % weekLength);
        if (!column || hidden[std::size_t(day)] == 0) continue;
        places.more.push_back({moreRow(day / weekLength, *column), hidden[std::size_t(day)],
                               page.firstDay + std::chrono::days{day}});
    }
    return places;
}

std::optional<CalendarSpot> MonthGeometry::spotAt(const QPoint &point, const CalendarPage &page) const
{
    if (point.x() < m_gutter || point.x() >= m_viewport.width() || point.y() < m_headHeight)
        return std::nullopt;
    int week = 0;
    while (week + 1 < m_weeks && point.y() >= rowTop(week + 1))
        ++week;
    const int day = week * weekLength + m_columns.dayOf(m_columns.at(point.x()));
    return CalendarSpot{.day = page.firstDay + std::chrono::days{day}, .time = {}};
}
