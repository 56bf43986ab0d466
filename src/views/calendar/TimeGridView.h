#pragma once

#include "corvexkit/time/CXClock.h"
#include "views/calendar/CalendarView.h"
#include "views/calendar/TimeGridGeometry.h"

/// A day or a week over its hours, with a lane for what lasts all day. A line stands at the current minute.
/// It opens about eight o'clock, or before the first item of the morning; then it stays where it was
/// scrolled.
class TimeGridView : public CalendarView {
    Q_OBJECT

public:
    /// Both outlive it.
    TimeGridView(CalendarEdits &edits, CXClock &clock, QWidget *parent = nullptr);

    void revealNow() override;
    const TimeGridGeometry &geometryOfPage() const { return m_geometry; }

protected:
    CalendarPlaces layOut() override;
    CalendarPlaces placesOf(const CalendarItem &item) const override;
    std::optional<CalendarSpot> spotAt(const QPoint &point) const override;
    void paintBehind(QPainter &painter) const override;
    void paintAbove(QPainter &painter) const override;
    QRect areaOf(ItemPlace::Shape shape) const override;
    void stepBeyond(int direction) override;
    void reveal() override;
    void scrollFor(const QPoint &point) override;
    void scrollContentsBy(int dx, int dy) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    std::chrono::minutes firstTime() const;
    void paintHead(QPainter &painter, int column) const;
    void paintHours(QPainter &painter) const;
    void paintSpot(QPainter &painter) const;
    void waitForNextMinute();

    CXClock &m_clock;
    TimeGridGeometry m_geometry;
    std::optional<std::chrono::minutes> m_top; // the time at the top of the hours
    bool m_isArranging = false;
    ClockCall m_nextMinute;
};
