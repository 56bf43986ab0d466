#include "views/controls/IconButton.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int iconButtonSide = 28;

} // namespace

IconButton::IconButton(Icon icon, const QString &does, QWidget *parent)
    : QAbstractButton(parent), m_icon(icon)
{
    setAccessibleName(does);
    setToolTip(does);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconButton::setMirrored(bool isMirrored)
{
    m_isMirrored = isMirrored;
    update();
}

void IconButton::setColor(const QColor &color)
{
    m_color = color;
    update();
}

QSize IconButton::sizeHint() const
{
    return {Metrics::scaled(iconButtonSide), Metrics::scaled(iconButtonSide)};
}

void IconButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown())
        Painting::roundedBox(painter, rect(), Metrics::pillRadius, isDown() ? theme.selection : theme.hover);
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::pillRadius);
    if (m_isMirrored != isRightToLeft()) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    Icons::paint(painter, rect(), m_icon, Metrics::scaled(Metrics::icon),
                 m_color.isValid() ? m_color : theme.secondaryText);
}
