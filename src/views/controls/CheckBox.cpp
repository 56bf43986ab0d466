#include "views/controls/CheckBox.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"

#include <QPainter>

namespace {
constexpr int ringSpace = 3;
}

CheckBox::CheckBox(QWidget *parent) : PaintedButton(parent)
{
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CheckBox::setStatus(KWTaskStatus status)
{
    m_status = status;
    setChecked(status != KWTaskStatusOpen);
    update();
}

void CheckBox::setPriority(KWTaskPriority priority)
{
    m_priority = priority;
    update();
}

QSize CheckBox::sizeHint() const
{
    const int side = Metrics::scaled(Metrics::checkbox) + 2 * ringSpace;
    return {side, side};
}

void CheckBox::paintContent(QPainter &painter)
{
    const int side = Metrics::scaled(Metrics::checkbox);
    const QRect box{(width() - side) / 2, (height() - side) / 2, side, side};
    Painting::checkbox(painter, box,
                       {.checked = m_status == KWTaskStatusOpen ? 0.0 : 1.0,
                        .priority = m_priority,
                        .isAbandoned = m_status == KWTaskStatusAbandoned,
                        .isHovered = isEnabled() && underMouse()});
}

PaintedButton::Ring CheckBox::ring() const { return {QRectF{rect()}, Metrics::checkboxRadius + ringSpace}; }
