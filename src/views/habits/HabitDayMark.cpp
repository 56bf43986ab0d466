#include "views/habits/HabitDayMark.h"

#include "model/records/HabitDay.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr double lineShare = 0.075; // of the diameter
constexpr double signShare = 0.19;  // how far a sign reaches from the centre

void paintTick(QPainter &painter, const QRectF &circle)
{
    const auto at = [&circle](double x, double y) {
        return QPointF{circle.left() + x * circle.width(), circle.top() + y * circle.height()};
    };
    painter.drawPolyline(QPolygonF{{at(0.32, 0.52), at(0.45, 0.65), at(0.69, 0.37)}});
}

void paintCross(QPainter &painter, const QRectF &circle)
{
    const double reach = circle.width() * signShare * 0.75;
    const QPointF centre = circle.center();
    painter.drawLine(centre - QPointF{reach, reach}, centre + QPointF{reach, reach});
    painter.drawLine(centre - QPointF{-reach, reach}, centre + QPointF{-reach, reach});
}

void paintDash(QPainter &painter, const QRectF &circle)
{
    const QPointF reach{circle.width() * signShare * 0.8, 0};
    painter.drawLine(circle.center() - reach, circle.center() + reach);
}

QPen pen(const QColor &color, const QRectF &circle)
{
    return {color, circle.width() * lineShare, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QRectF within(const QRectF &circle)
{
    const double inset = circle.width() * lineShare / 2;
    return circle.adjusted(inset, inset, -inset, -inset);
}

// To be seen on a selected row as well.
QColor quietRing()
{
    QColor color = Theme::current().control;
    color.setAlphaF(0.45F);
    return color;
}

void paintRing(QPainter &painter, const QRectF &circle, const QPen &line)
{
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(within(circle));
}

void paintNotDue(QPainter &painter, const QRectF &circle)
{
    const Theme &theme = Theme::current();
    QPen line{theme.control, 1};
    line.setDashPattern({3, 3});
    paintRing(painter, circle, line);
    painter.setPen(pen(theme.control, circle));
    paintDash(painter, circle);
}

void paintSkipped(QPainter &painter, const QRectF &circle)
{
    const Theme &theme = Theme::current();
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.tag);
    painter.drawEllipse(circle);
    painter.setPen(pen(theme.secondaryText, circle));
    paintDash(painter, circle);
}

void paintDone(QPainter &painter, const QRectF &circle, const InkedColor &colors)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.fill);
    painter.drawEllipse(circle);
    painter.setPen(pen(colors.ink, circle));
    painter.setBrush(Qt::NoBrush);
    paintTick(painter, circle);
}

void paintOpen(QPainter &painter, const QRectF &circle, const HabitDay &day, const QColor &color)
{
    if (day.value > 0) return HabitDayMark::paintProgress(painter, circle, day.progress(), color);
    if (!day.isDue) return paintNotDue(painter, circle);
    paintRing(painter, circle, pen(quietRing(), circle));
}

} // namespace

void HabitDayMark::paint(QPainter &painter, const QRectF &circle, const HabitDay &day, const QColor &color)
{
    const Theme &theme = Theme::current();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    switch (day.state) {
    case HabitDayState::Done:
        paintDone(painter, circle, InkedColor::of(color));
        break;
    case HabitDayState::UnAchieved:
        paintRing(painter, circle, pen(theme.control, circle));
        painter.setPen(pen(theme.secondaryText, circle));
        paintCross(painter, circle);
        break;
    case HabitDayState::Skipped:
        paintSkipped(painter, circle);
        break;
    case HabitDayState::Open:
        paintOpen(painter, circle, day, color);
        break;
    }
    painter.restore();
}

void HabitDayMark::paintProgress(QPainter &painter, const QRectF &circle, double progress,
                                 const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintRing(painter, circle, pen(quietRing(), circle));
    painter.setPen(pen(color, circle));
    constexpr int sixteenths = 16;
    painter.drawArc(within(circle), 90 * sixteenths, -qRound(progress * 360 * sixteenths));
    painter.restore();
}
