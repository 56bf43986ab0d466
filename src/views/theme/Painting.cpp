#include "views/theme/Painting.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

class Saved {
public:
    explicit Saved(QPainter &painter) : m_painter(painter)
    {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
    }
    ~Saved() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(Saved)

private:
    QPainter &m_painter;
};

constexpr int pillPadding = 8;

// The part of a line of strokes that a pen has drawn after `share` of its length.
QPainterPath firstPart(const QPolygonF &line, double share)
{
    QPainterPath whole;
    whole.addPolygon(line);
    QPainterPath part;
    part.moveTo(line.first());
    for (int i = 1; i < line.size(); ++i) {
        QPainterPath upToHere;
        upToHere.addPolygon(line.first(i + 1));
        const double corner = upToHere.length() / whole.length();
        part.lineTo(corner < share ? line.at(i)
                                   : whole.pointAtPercent(whole.percentAtLength(whole.length() * share)));
        if (corner >= share) break;
    }
    return part;
}

void drawTick(QPainter &painter, const QRectF &bounds, double share)
{
    const auto at = [&bounds](double x, double y) {
        return QPointF{bounds.left() + x * bounds.width(), bounds.top() + y * bounds.height()};
    };
    painter.drawPath(firstPart({at(0.27, 0.52), at(0.43, 0.68), at(0.74, 0.34)}, share));
}

void drawCross(QPainter &painter, const QRectF &bounds)
{
    const QRectF inner = bounds.adjusted(bounds.width() * 0.32, bounds.height() * 0.32,
                                         -bounds.width() * 0.32, -bounds.height() * 0.32);
    painter.drawLine(inner.topLeft(), inner.bottomRight());
    painter.drawLine(inner.topRight(), inner.bottomLeft());
}

} // namespace

void Painting::roundedBox(QPainter &painter, const QRectF &bounds, double radius, const QColor &fill,
                          const QColor &outline)
{
    const Saved saved{painter};
    painter.setBrush(fill);
    painter.setPen(outline.isValid() ? QPen{outline, 1} : QPen{Qt::NoPen});
    const double inset = outline.isValid() ? 0.5 : 0;
    painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius, radius);
}

void Painting::focusRing(QPainter &painter, const QRectF &bounds, double radius)
{
    const Saved saved{painter};
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen{Theme::current().accent, 1.5});
    painter.drawRoundedRect(bounds.adjusted(0.75, 0.75, -0.75, -0.75), radius, radius);
}

void Painting::checkbox(QPainter &painter, const QRectF &bounds, const Checkbox &state)
{
    const Saved saved{painter};
    const Theme &theme = Theme::current();
    const double radius = Metrics::checkboxRadius * bounds.width() / Metrics::checkbox;
    const double line = 1.5 * bounds.width() / Metrics::checkbox;

    const QColor mark = theme.priority(state.priority).mark;
    painter.setPen(QPen{mark, line});
    painter.setBrush(Qt::NoBrush);
    if (state.isHovered && state.checked == 0) {
        QColor fill = mark;
        fill.setAlphaF(0.15F);
        painter.setBrush(fill);
    }
    const QRectF box = bounds.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    if (state.checked < 1) painter.drawRoundedRect(box, radius, radius);
    if (state.checked <= 0) return;

    painter.setOpacity(painter.opacity() * std::min(1.0, state.checked * 2));
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.done);
    painter.drawRoundedRect(bounds, radius, radius);
    painter.setPen(QPen{theme.window, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
    painter.setBrush(Qt::NoBrush);
    if (state.isAbandoned)
        drawCross(painter, bounds);
    else
        drawTick(painter, bounds, state.checked);
}

void Painting::dot(QPainter &painter, const QPointF &centre, const QString &color)
{
    const Saved saved{painter};
    const QColor named{color};
    painter.setPen(Qt::NoPen);
    painter.setBrush(named.isValid() ? named : Theme::current().control);
    const double radius = Metrics::scaled(Metrics::dot) / 2.0;
    painter.drawEllipse(centre, radius, radius);
}

int Painting::pillWidth(const QString &text)
{
    return Fonts::width(Fonts::Role::Caption, text) + 2 * pillPadding;
}

void Painting::pill(QPainter &painter, const QRect &bounds, const QString &text)
{
    const Theme &theme = Theme::current();
    const int height = QFontMetrics{Fonts::font(Fonts::Role::Caption)}.height() + 2;
    QRect box = bounds;
    box.setHeight(height);
    box.moveTop(bounds.top() + (bounds.height() - height) / 2);
    roundedBox(painter, box, height / 2.0, theme.tag);

    const Saved saved{painter};
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(painter, Fonts::Role::Caption, box.adjusted(pillPadding / 2, 0, -pillPadding / 2, 0),
                    Qt::AlignHCenter, text);
}
