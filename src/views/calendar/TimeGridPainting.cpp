#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/DayHead.h"
#include "views/calendar/TimeGridView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/DateWording.h"

#include <QPainter>
#include <QStyle>

using namespace std::chrono;

namespace {

constexpr double nowDot = 4.5;
constexpr double nowLine = 1.5;
constexpr int hourNameGap = 8;
constexpr int spotLine = 2;

} // namespace

void TimeGridView::paintBehind(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    for (int column = 0; column < shownDays().count(); ++column)
        paintHead(painter, column);
    const QRect lanes = m_geometry.lanes();
    const QRect gutter = visual({0, lanes.top(), m_geometry.gutter() - hourNameGap, lanes.height()});
    painter.setPen(theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::Caption, gutter,
                    QStyle::visualAlignment(layoutDirection(), Qt::AlignRight), KWLocalizedString("all day"));
    if (look().hasWeekNumbers) {
        const QRect head{0, 0, m_geometry.gutter() - hourNameGap, m_geometry.head(0).height()};
        const int week = CalendarWording::weekNumber(content().page.firstDay, look().firstWeekday);
        Fonts::drawLine(painter, Fonts::Role::Caption, visual(head),
                        QStyle::visualAlignment(layoutDirection(), Qt::AlignRight),
                        KWLocalizedString("W %1").arg(locale().toString(week)));
    }
    paintHours(painter);
    const int left = m_geometry.gutter();
    const auto line = [&](const QRect &bounds) { painter.fillRect(visual(bounds), theme.hairline); };
    line({left, lanes.top(), viewport()->width() - left, 1});
    line({left, lanes.bottom(), viewport()->width() - left, 1});
    line({Metrics::gap, 0, viewport()->width() - Metrics::gap, 1});
    for (int column = 0; column < shownDays().count(); ++column)
        line({m_geometry.columns().left(column), lanes.top(), 1, viewport()->height() - lanes.top()});
    if (isSpotShown()) paintSpot(painter);
}

void TimeGridView::paintHead(QPainter &painter, int column) const
{
    const Day day = content().page.firstDay + days{shownDays().dayOf(column)};
    DayHead::paint(painter, visual(m_geometry.head(column)), day, day == content().today, locale());
}

void TimeGridView::paintHours(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    const QRect hours = m_geometry.hours();
    painter.save();
    painter.setClipRect(hours);
    const int labelHeight = Metrics::scaled(16);
    for (std::chrono::hours hour{0}; hour <= 24h; ++hour) {
        const int y = m_geometry.yOf(hour);
        const int left = m_geometry.gutter();
        painter.fillRect(visual(QRect{left, y, viewport()->width() - left, 1}), theme.hairline);
        if (hour == 24h) break;
        painter.setPen(theme.faintText);
        Fonts::drawLine(painter, Fonts::Role::Caption,
                        visual({0, y - labelHeight / 2, m_geometry.gutter() - hourNameGap, labelHeight}),
                        QStyle::visualAlignment(layoutDirection(), Qt::AlignRight),
                        DateWording::timeOfDay(LocalTime{hour}, locale()));
    }
    painter.restore();
}

void TimeGridView::paintSpot(QPainter &painter) const
{
    const auto column = shownDays().columnOf(int((spot().day - content().page.firstDay).count()));
    if (!column) return;
    const QRect place = m_geometry.column(*column);
    painter.save();
    if (spot().time) {
        painter.setClipRect(m_geometry.hours());
        painter.fillRect(visual({place.left(), m_geometry.yOf(*spot().time), place.width(), spotLine}),
                         Theme::current().accent);
    } else {
        const QRect lanes = m_geometry.lanes();
        Painting::focusRing(painter, visual({place.left(), lanes.top(), place.width(), lanes.height()}),
                            Metrics::pillRadius);
    }
    painter.restore();
}

void TimeGridView::paintAbove(QPainter &painter) const
{
    const LocalTime now = m_clock.localNow();
    const Day today = floor<days>(now);
    const auto column = content().page.holds(today)
                            ? shownDays().columnOf(int((today - content().page.firstDay).count()))
                            : std::nullopt;
    if (!column) return;
    const QRect place = m_geometry.column(*column);
    const double y = m_geometry.yOf(floor<minutes>(now - today)) + 0.5;
    painter.save();
    painter.setClipRect(m_geometry.hours());
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = Theme::current().high.mark;
    const QRect line = visual({place.left(), int(y), place.width(), 1});
    painter.fillRect(QRectF{double(line.left()), y - nowLine / 2, double(line.width()), nowLine}, color);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF{double(isRightToLeft() ? line.right() : line.left()), y}, nowDot, nowDot);
    painter.restore();
}
