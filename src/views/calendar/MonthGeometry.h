#pragma once

#include "calendar/CalendarPageContent.h"
#include "views/calendar/CalendarPlaces.h"
#include "views/calendar/CalendarSpot.h"
#include "views/calendar/DayColumns.h"

/// Where everything stands in the view of a month, in pixels of the viewport and from left to right: the
/// names of the weekdays, and below them a row for each week.
class MonthGeometry {
public:
    enum class WeekNumbers { Hidden, Shown };

    MonthGeometry() = default;
    MonthGeometry(const CalendarPage &page, const DayColumns &columns, WeekNumbers weekNumbers,
                  const QSize &viewport);

    const DayColumns &columns() const { return m_columns; }
    int weeks() const { return m_weeks; }
    int gutter() const { return m_gutter; } ///< the width of the week numbers, 0 without them
    QRect head(int column) const;
    QRect cell(int week, int column) const;
    QRect dayNumber(int week, int column) const; ///< the line at the top of the cell

    CalendarPlaces places(const std::vector<LaneBar> &bars, const CalendarPage &page) const;
    /// A whole day; nothing outside of the days.
    std::optional<CalendarSpot> spotAt(const QPoint &point, const CalendarPage &page) const;

private:
    int rowTop(int week) const;
    int lanes() const; // that have room in a row
    QRect laneRow(int week, DayColumns::Range columns, int lane) const;
    QRect moreRow(int week, int column) const;
    std::vector<int> shownLanes(const std::vector<LaneBar> &bars) const;

    DayColumns m_columns;
    QSize m_viewport;
    int m_weeks = 1;
    int m_gutter = 0;
    int m_headHeight = 0;
};
