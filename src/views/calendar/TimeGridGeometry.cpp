#include "views/calendar/TimeGridGeometry.h"

#include "views/theme/Metrics.h"

#include <algorithm>

using namespace std::chrono;

namespace {

constexpr int hourNamesWidth = 64;
constexpr int dayHeadHeight = 52;
constexpr int laneRowHeight = 22;
constexpr int lanePadding = 6;
constexpr int oneHourHeight = 52;
constexpr int hoursPadding = 8;   // above the first hour and below the last, for their names
constexpr int leastBoxWidth = 36; // a box that is narrower cannot be read
constexpr int leastBoxWidthOfDayAlone = 48;
constexpr int counterWidth = 36; // where boxes beside each other are counted
constexpr int boxGap = 2;        // below and beside a box
constexpr int dayPadding = 4;    // before the first box of a day and behind the last one
constexpr minutes wholeDay = 24h;

} // namespace

TimeGridGeometry::TimeGridGeometry(const CalendarPageContent &content, const DayColumns &columns,
                                   const QSize &viewport)
    : m_columns(columns)
    , m_viewport(viewport)
    , m_gutter(Metrics::scaled(hourNamesWidth))
    , m_headHeight(Metrics::scaled(dayHeadHeight))
    , m_laneHeight(Metrics::scaled(laneRowHeight))
    , m_hourHeight(Metrics::scaled(oneHourHeight))
{
    m_columns.place(m_gutter, viewport.width() - m_gutter);
    for (const LaneBar &each : content.bars)
        if (m_columns.columnsOf(each.firstDay, each.lastDay))
            m_laneCount = std::max(m_laneCount, std::min(each.lane + 1, mostLanes + 1));
}

QRect TimeGridGeometry::head(int column) const
{
    return {m_columns.left(column), 0, m_columns.right(column) - m_columns.left(column), m_headHeight};
}

QRect TimeGridGeometry::lanes() const
{
    const int rows = std::min(m_laneCount, mostLanes);
    return {m_gutter, m_headHeight, m_viewport.width() - m_gutter, rows * m_laneHeight + 2 * lanePadding};
}

QRect TimeGridGeometry::hours() const
{
    const int top = lanes().bottom() + 1;
    return {0, top, m_viewport.width(), std::max(0, m_viewport.height() - top)};
}

QRect TimeGridGeometry::column(int column) const
{
    return {m_columns.left(column), hours().top(), m_columns.right(column) - m_columns.left(column),
            hours().height()};
}

int TimeGridGeometry::scrollRange() const
{
    return std::max(0, 24 * m_hourHeight + 2 * hoursPadding - hours().height());
}

int TimeGridGeometry::offsetOf(minutes time) const
{
    return std::clamp(int(time.count()) * m_hourHeight / 60, 0, scrollRange());
}

minutes TimeGridGeometry::timeOf(int offset) const { return minutes{offset * 60 / m_hourHeight}; }

int TimeGridGeometry::yOf(minutes time) const
{
    return hours().top() + hoursPadding - m_offset + int(time.count()) * m_hourHeight / 60;
}

QRect TimeGridGeometry::laneRow(int firstColumn, int lastColumn, int lane) const
{
    const int left = m_columns.left(firstColumn) + dayPadding;
    const int right = m_columns.right(lastColumn) - dayPadding;
    return {left, m_headHeight + lanePadding + lane * m_laneHeight, right - left, m_laneHeight - boxGap};
}

CalendarPlaces TimeGridGeometry::places(const CalendarPageContent &content) const
{
    CalendarPlaces places;
    addBoxes(content.timed, content.page, places);
    addBars(content.bars, content.page, places);
    return places;
}

CalendarPlaces TimeGridGeometry::placesOf(const CalendarItem &item, const CalendarPage &page) const
{
    CalendarPlaces places;
    const std::vector<CalendarItem> alone{item};
    if (standsInAllDayLane(item))
        addBars(allDayBars(alone, page), page, places);
    else
        addBoxes(timedBoxes(alone, page, shortestMinutes), page, places);
    return places;
}

void TimeGridGeometry::addBars(const std::vector<LaneBar> &bars, const CalendarPage &page,
                               CalendarPlaces &places) const
{
    const bool isFull = m_laneCount > mostLanes;
    const int shownLanes = isFull ? mostLanes - 1 : mostLanes;
    std::vector<int> hidden(std::size_t(m_columns.count()), 0);
    for (const LaneBar &each : bars) {
        const auto range = m_columns.columnsOf(each.firstDay, each.lastDay);
        if (!range) continue;
        if (each.lane < shownLanes) {
            places.items.push_back({each.item, laneRow(range->first, range->last, each.lane),
                                    ItemPlace::Shape::Bar, each.beginsBefore, each.goesOn});
        } else {
            for (int column = range->first; column <= range->last; ++column)
                ++hidden[std::size_t(column)];
        }
    }
    for (int column = 0; column < m_columns.count(); ++column)
        if (const int count = hidden[std::size_t(column)]; count > 0)
            places.more.push_back(
                {laneRow(column, column, shownLanes), count, page.firstDay + days{m_columns.dayOf(column)}});
}

// Where boxes would be too narrow, those that have no room are counted behind the others.
void TimeGridGeometry::addBoxes(const std::vector<TimedBox> &boxes, const CalendarPage &page,
                                CalendarPlaces &places) const
{
    const int leastWidth = Metrics::scaled(m_columns.count() == 1 ? leastBoxWidthOfDayAlone : leastBoxWidth);
    for (const TimedBox &each : boxes) {
        const auto column = m_columns.columnOf(each.day);
        if (!column) continue;
        const int left = m_columns.left(*column) + dayPadding;
        const int width = m_columns.right(*column) - dayPadding - left;
        const bool isCrowded = each.columns > 1 && width / each.columns < leastWidth;
        const int counter = isCrowded ? std::min(Metrics::scaled(counterWidth), width / 2) : 0;
        const int columns = isCrowded ? std::max(1, (width - counter) / leastWidth) : each.columns;
        const auto xOf = [&](int index) { return left + (width - counter) * index / columns; };
        const int top = yOf(minutes{each.fromMinute});
        const int height = yOf(minutes{each.toMinute}) - top - boxGap;
        if (each.column < columns) {
            const int x = xOf(each.column);
            const int end = xOf(std::min(each.column + each.span, columns));
            places.items.push_back({each.item,
                                    {x, top, end - x - boxGap, height},
                                    ItemPlace::Shape::Box,
                                    each.beginsBefore,
                                    each.goesOn});
            continue;
        }
        const QRect place{left + width - counter, top, counter - boxGap, height};
        const Day day = page.firstDay + days{each.day};
        const auto beside = std::ranges::find_if(places.more, [&](const MorePlace &other) {
            return other.day == day && other.bounds.intersects(place);
        });
        if (beside == places.more.end()) {
            places.more.push_back({place, 1, day, ItemPlace::Shape::Box});
        } else {
            beside->bounds |= place;
            ++beside->count;
        }
    }
}

std::optional<CalendarSpot> TimeGridGeometry::spotAt(const QPoint &point, const CalendarPage &page) const
{
    if (point.x() < m_gutter || point.x() >= m_viewport.width()) return std::nullopt;
    const Day day = page.firstDay + days{m_columns.dayOf(m_columns.at(point.x()))};
    if (point.y() < hours().top()) return CalendarSpot{.day = day, .time = {}};
    const minutes time{(point.y() - yOf(0min)) * 60 / m_hourHeight};
    return CalendarSpot{.day = day, .time = std::clamp(time, 0min, wholeDay - 1min)};
}
