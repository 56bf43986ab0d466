#include "views/controls/IconButton.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

IconButton::IconButton(Icon icon, const QString &does, QWidget *parent) : PaintedButton(parent), m_icon(icon)
{
    setAccessibleName(does);
    setToolTip(does);
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
    return {Metrics::scaled(Metrics::quietButton), Metrics::scaled(Metrics::quietButton)};
}

void IconButton::paintContent(QPainter &painter)
{
    if (isChecked()) Painting::roundedBox(painter, rect(), ring().radius, Theme::current().selection);
    paintBackground(painter);
    if (m_isMirrored != isRightToLeft()) {
        painter.translate(width(), 0);
        painter.scale(-1, 1);
    }
    const QColor color = !isEnabled()        ? Theme::current().faintText
                         : m_color.isValid() ? m_color
                                             : Theme::current().secondaryText;
    Icons::paint(painter, rect(), m_icon, Metrics::scaled(Metrics::icon), color);
}
