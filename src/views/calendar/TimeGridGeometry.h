#pragma once

#include "calendar/CalendarPageContent.h"
#include "views/calendar/CalendarPlaces.h"
#include "views/calendar/CalendarSpot.h"
#include "views/calendar/DayColumns.h"

/// Where everything stands in the view of a day or week, in pixels of the viewport and from left to right:
/// the heads of the days, the lane of what lasts all day, and below it the hours, which are scrolled.
class TimeGridGeometry {
public:
    /// How many rows the lane has at most; the last one tells how many more there are then.
    static constexpr int mostLanes = 5;
    /// An item that takes less is drawn as long as this.
    static constexpr int shortestMinutes = 30;

    TimeGridGeometry() = default;
    TimeGridGeometry(const CalendarPageContent &content, const DayColumns &columns, const QSize &viewport);

    /// By how many pixels the hours are moved up.
    void scrollTo(int offset) { m_offset = offset; }
    int scrollRange() const;                       ///< the largest useful offset
    int offsetOf(std::chrono::minutes time) const; ///< that puts the time at the top of the hours
    std::chrono::minutes timeOf(int offset) const; ///< the other way round
    int hourHeight() const { return m_hourHeight; }

    const DayColumns &columns() const { return m_columns; }
    int gutter() const { return m_gutter; } ///< its width; the hours are named in it
    QRect head(int column) const;
    QRect lanes() const;
    QRect hours() const; ///< the part of the viewport that scrolls
    QRect column(int column) const;
    int yOf(std::chrono::minutes time) const;

    CalendarPlaces places(const CalendarPageContent &content) const;
    /// The bars and boxes, of one item alone.
    CalendarPlaces placesOf(const CalendarItem &item, const CalendarPage &page) const;
    /// Nothing outside of the days. Below and above the hours that can be seen, the nearest of them.
    std::optional<CalendarSpot> spotAt(const QPoint &point, const CalendarPage &page) const;

private:
    void addBars(const std::vector<LaneBar> &bars, const CalendarPage &page, CalendarPlaces &places) const;
    void addBoxes(const std::vector<TimedBox> &boxes, const CalendarPage &page, CalendarPlaces &places) const;
    QRect laneRow(int firstColumn, int lastColumn, int lane) const;

    DayColumns m_columns;
    QSize m_viewport;
    int m_gutter = 0;
    int m_headHeight = 0;
    int m_laneHeight = 0; // of one row
    int m_hourHeight = 1;
    int m_laneCount = 1;
    int m_offset = 0;
};
