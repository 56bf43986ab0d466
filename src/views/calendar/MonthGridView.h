#pragma once

#include "views/calendar/CalendarView.h"
#include "views/calendar/MonthGeometry.h"

/// A month in rows of weeks. A day that has no room for all its items tells how many more there are.
class MonthGridView : public CalendarView {
    Q_OBJECT

public:
    /// `edits` outlives it.
    explicit MonthGridView(CalendarEdits &edits, QWidget *parent = nullptr);

    const MonthGeometry &geometryOfPage() const { return m_geometry; }

protected:
    CalendarPlaces layOut() override;
    CalendarPlaces placesOf(const CalendarItem &item) const override;
    std::optional<CalendarSpot> spotAt(const QPoint &point) const override;
    void paintBehind(QPainter &painter) const override;
    void stepBeyond(int direction) override;

private:
    void paintCell(QPainter &painter, int week, int column) const;

    MonthGeometry m_geometry;
};
