#include "views/calendar/MonthGridView.h"

#include "views/calendar/CalendarWording.h"
#include "views/calendar/DayHead.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/CalendarDay.h"

#include <QPainter>

using namespace std::chrono;

namespace {

constexpr int weekDays = 7;
constexpr int numberPadding = 3;

} // namespace

MonthGridView::MonthGridView(CalendarEdits &edits, QWidget *parent) : CalendarView(edits, parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

CalendarPlaces MonthGridView::layOut()
{
    const auto numbers =
        look().hasWeekNumbers ? MonthGeometry::WeekNumbers::Shown : MonthGeometry::WeekNumbers::Hidden;
    m_geometry = MonthGeometry{content().page, shownDays(), numbers, viewport()->size()};
    return m_geometry.places(content().bars, content().page);
}

CalendarPlaces MonthGridView::placesOf(const CalendarItem &item) const
{
    return m_geometry.places(monthBars({item}, content().page), content().page);
}

std::optional<CalendarSpot> MonthGridView::spotAt(const QPoint &point) const
{
    return m_geometry.spotAt(point, content().page);
}

void MonthGridView::stepBeyond(int direction) { goToDay(spot().day + days{weekDays * direction}); }

void MonthGridView::paintBehind(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    const DayColumns &columns = m_geometry.columns();
    for (int column = 0; column < columns.count(); ++column)
        DayHead::paintName(painter, visual(m_geometry.head(column)),
                           content().page.firstDay + days{columns.dayOf(column)}, locale());
    for (int week = 0; week < m_geometry.weeks(); ++week) {
        const QRect first = m_geometry.cell(week, 0);
        painter.fillRect(QRect{0, first.top(), viewport()->width(), 1}, theme.hairline);
        if (look().hasWeekNumbers) {
            const Day firstDay = content().page.firstDay + days{weekDays * week};
            const int number = CalendarWording::weekNumber(firstDay, look().firstWeekday);
            const QRect line = m_geometry.dayNumber(week, 0);
            painter.setPen(theme.faintText);
            Fonts::drawLine(painter, Fonts::Role::Caption,
                            visual({0, line.top(), m_geometry.gutter(), line.height()}), Qt::AlignHCenter,
                            locale().toString(number));
        }
        for (int column = 0; column < columns.count(); ++column)
            paintCell(painter, week, column);
    }
}

void MonthGridView::paintCell(QPainter &painter, int week, int column) const
{
    const Theme &theme = Theme::current();
    const QRect cell = m_geometry.cell(week, column);
    const Day day = content().page.firstDay + days{week * weekDays + m_geometry.columns().dayOf(column)};
    if (column > 0 || m_geometry.gutter() > 0)
        painter.fillRect(visual({cell.left(), cell.top(), 1, cell.height()}), theme.hairline);
    if (day == spot().day && isSpotShown())
        Painting::focusRing(painter, visual(cell.adjusted(1, 1, 0, 0)), Metrics::pillRadius);
    const bool isOfMonth = dateOf(day).month() == dateOf(content().page.begin).month();
    const QRect line = m_geometry.dayNumber(week, column);
    const int side = line.height() - 2 * numberPadding;
    const QRect number{line.left() + numberPadding, line.top() + numberPadding, side, side};
    DayHead::paintNumber(painter, visual(number), day, day == content().today,
                         isOfMonth ? DayHead::Tone::Plain : DayHead::Tone::Quiet, locale());
}
