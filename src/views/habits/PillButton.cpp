#include "views/habits/PillButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int pillSidePadding = 14;
constexpr int pillRing = 3;

} // namespace

PillButton::PillButton(const QString &text, Look look, QWidget *parent) : PaintedButton(parent), m_look(look)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setLabel(text);
}

void PillButton::setLook(Look look)
{
    m_look = look;
    update();
}

void PillButton::setLabel(const QString &label)
{
    setText(label);
    setAccessibleName(label);
    updateGeometry();
}

QSize PillButton::sizeHint() const
{
    return {Fonts::width(Fonts::Role::BodyStrong, text()) + 2 * (pillSidePadding + pillRing),
            Metrics::scaled(Metrics::quietButton) + 2 * pillRing};
}

void PillButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    const bool isFilled = m_look == Look::Filled && isEnabled();
    const QRectF pill = QRectF{rect()}.adjusted(pillRing, pillRing, -pillRing, -pillRing);
    QColor fill = isFilled ? theme.accent : underMouse() && isEnabled() ? theme.hover : theme.window;
    if (isDown()) fill = fill.darker(112);
    Painting::roundedBox(painter, pill, pill.height() / 2, fill, isFilled ? fill : theme.control);
    painter.setPen(isFilled ? theme.onAccent : isEnabled() ? theme.text : theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::BodyStrong, rect(), Qt::AlignHCenter, text());
}

PaintedButton::Ring PillButton::ring() const { return {QRectF{rect()}, height() / 2.0}; }
