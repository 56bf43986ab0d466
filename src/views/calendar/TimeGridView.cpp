#include "views/calendar/TimeGridView.h"

#include "views/calendar/CalendarDrag.h"
#include "views/calendar/ItemDays.h"

#include <QScrollBar>

#include <algorithm>

using namespace std::chrono;

namespace {

constexpr minutes usualBegin = 8h;
constexpr minutes spotStep = 30min;
constexpr minutes lastSpot = 24h - spotStep;
constexpr int dragScroll = 8; // pixels, for each move of the mouse near an edge

} // namespace

TimeGridView::TimeGridView(CalendarEdits &edits, CXClock &clock, QWidget *parent)
    : CalendarView(edits, parent), m_clock(clock)
{
    const LocalTime now = m_clock.localNow();
    setSpot({.day = floor<days>(now), .time = std::min(ceil<hours>(now - floor<days>(now)), hours{23})});
}

// An hour before what is first.
minutes TimeGridView::firstTime() const
{
    minutes first = usualBegin;
    for (const TimedBox &each : content().timed)
        if (!each.beginsBefore) first = std::min(first, minutes{each.fromMinute});
    return std::max(first - 1h, 0min);
}

CalendarPlaces TimeGridView::layOut()
{
    m_geometry = TimeGridGeometry{content(), shownDays(), viewport()->size()};
    if (!m_top) m_top = firstTime();
    m_isArranging = true;
    verticalScrollBar()->setRange(0, m_geometry.scrollRange());
    verticalScrollBar()->setPageStep(m_geometry.hours().height());
    verticalScrollBar()->setSingleStep(m_geometry.hourHeight() / 2);
    verticalScrollBar()->setValue(m_geometry.offsetOf(*m_top));
    m_isArranging = false;
    m_geometry.scrollTo(verticalScrollBar()->value());
    return m_geometry.places(content());
}

void TimeGridView::scrollContentsBy(int, int)
{
    if (m_isArranging) return;
    m_top = m_geometry.timeOf(verticalScrollBar()->value());
    arrange();
}

CalendarPlaces TimeGridView::placesOf(const CalendarItem &item) const
{
    return m_geometry.placesOf(item, content().page);
}

std::optional<CalendarSpot> TimeGridView::spotAt(const QPoint &point) const
{
    return m_geometry.spotAt(point, content().page);
}

QRect TimeGridView::areaOf(ItemPlace::Shape shape) const
{
    return shape == ItemPlace::Shape::Box ? m_geometry.hours()
                                          : QRect{0, 0, viewport()->width(), m_geometry.hours().top()};
}

void TimeGridView::stepBeyond(int direction)
{
    const CalendarItem *item = selectedItem();
    const bool isTimed = item && !standsInAllDayLane(*item);
    const minutes from =
        isTimed ? floor<minutes>(item->start - ItemDays::of(*item).first) : spot().time.value_or(usualBegin);
    setSpot({.day = spot().day, .time = std::clamp(from + direction * spotStep, 0min, lastSpot)});
}

void TimeGridView::reveal()
{
    if (shownDays().count() == 0 || !m_top) return;
    const CalendarItem *item = selectedItem();
    if (item && standsInAllDayLane(*item)) return;
    if (!item && !spot().time) return;
    const minutes first = item ? floor<minutes>(item->start - ItemDays::of(*item).first) : *spot().time;
    const minutes length =
        item ? std::clamp(floor<minutes>(item->end - item->start), spotStep, minutes{2h}) : 1h;
    const QRect hours = m_geometry.hours();
    if (m_geometry.yOf(first) < hours.top())
        verticalScrollBar()->setValue(m_geometry.offsetOf(first));
    else if (m_geometry.yOf(first + length) > hours.bottom())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + m_geometry.yOf(first + length) -
                                      hours.bottom());
}

// With an hour before it, and as much behind it as there is room for.
void TimeGridView::revealNow()
{
    if (shownDays().count() == 0) return;
    const LocalTime now = m_clock.localNow();
    const minutes time = floor<minutes>(now - floor<days>(now));
    const QRect hours = m_geometry.hours();
    if (m_geometry.yOf(time) < hours.top() || m_geometry.yOf(time) > hours.bottom())
        verticalScrollBar()->setValue(m_geometry.offsetOf(std::max(time - 1h, 0min)));
}

void TimeGridView::scrollFor(const QPoint &point)
{
    const QRect hours = m_geometry.hours();
    if (point.y() > hours.bottom() - dragScroll)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + dragScroll);
    else if (point.y() >= hours.top() && point.y() < hours.top() + dragScroll)
        verticalScrollBar()->setValue(verticalScrollBar()->value() - dragScroll);
}

void TimeGridView::showEvent(QShowEvent *event)
{
    CalendarView::showEvent(event);
    waitForNextMinute();
}

void TimeGridView::hideEvent(QHideEvent *event)
{
    m_nextMinute.cancel();
    CalendarView::hideEvent(event);
}

void TimeGridView::waitForNextMinute()
{
    const Instant next = floor<minutes>(m_clock.now()) + 1min;
    m_nextMinute = m_clock.callAt(next, [this] {
        viewport()->update();
        waitForNextMinute();
    });
}
