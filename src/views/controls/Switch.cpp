#include "views/controls/Switch.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr QSize switchSize{34, 20};
constexpr int switchRing = 3;
constexpr int knobInset = 3;

} // namespace

Switch::Switch(QWidget *parent) : PaintedButton(parent)
{
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, qOverload<>(&QWidget::update));
}

QSize Switch::sizeHint() const
{
    return {Metrics::scaled(switchSize.width()) + 2 * switchRing,
            Metrics::scaled(switchSize.height()) + 2 * switchRing};
}

void Switch::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    const QRectF pill = QRectF{rect()}.adjusted(switchRing, switchRing, -switchRing, -switchRing);
    Painting::roundedBox(painter, pill, pill.height() / 2, isChecked() ? theme.accent : theme.control);
    const double side = pill.height() - 2 * knobInset;
    const bool isAtRight = isChecked() != (layoutDirection() == Qt::RightToLeft);
    const QRectF knob{isAtRight ? pill.right() - knobInset - side : pill.left() + knobInset,
                      pill.top() + knobInset, side, side};
    Painting::roundedBox(painter, knob, side / 2, theme.window);
}

PaintedButton::Ring Switch::ring() const { return {QRectF{rect()}, height() / 2.0}; }
