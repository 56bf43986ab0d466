#include "views/controls/PaintedButton.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

PaintedButton::PaintedButton(QWidget *parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

PaintedButton::Ring PaintedButton::ring() const { return {QRectF{rect()}, Metrics::pillRadius}; }

void PaintedButton::paintBackground(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    if (isEnabled() && (isDown() || underMouse()))
        Painting::roundedBox(painter, rect(), ring().radius, isDown() ? theme.selection : theme.hover);
}

QRect PaintedButton::visual(const QRect &bounds) const
{
    return QStyle::visualRect(layoutDirection(), rect(), bounds);
}

Qt::Alignment PaintedButton::leading() const
{
    return QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
}

void PaintedButton::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.save();
    paintContent(painter);
    painter.restore();
    if (isFocusShown()) Painting::focusRing(painter, ring().bounds, ring().radius);
}

void PaintedButton::keyPressEvent(QKeyEvent *event)
{
    m_isByKeyboard = true;
    update();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QAbstractButton::keyPressEvent(event);
    else if (!event->isAutoRepeat() || autoRepeat())
        click();
}

void PaintedButton::focusInEvent(QFocusEvent *event)
{
    // A window or a menu that goes gives the focus back as it was.
    const bool comesBack =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!comesBack) m_isByKeyboard = event->reason() != Qt::MouseFocusReason;
    QAbstractButton::focusInEvent(event);
}
