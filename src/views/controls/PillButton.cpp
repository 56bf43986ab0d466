#include "views/controls/PillButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int pillSidePadding = 14;
constexpr int largePillSidePadding = 24;
constexpr int largePill = 34;
constexpr int pillRing = 3;

} // namespace

PillButton::PillButton(const QString &text, Look look, Size size, QWidget *parent)
    : PaintedButton(parent), m_look(look), m_size(size)
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
    const bool isLarge = m_size == Size::Large;
    const int padding = isLarge ? largePillSidePadding : pillSidePadding;
    return {Fonts::width(Fonts::Role::BodyStrong, text()) + 2 * (padding + pillRing),
            Metrics::scaled(isLarge ? largePill : Metrics::quietButton) + 2 * pillRing};
}

void PillButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    const bool isFilled = m_look == Look::Filled && isEnabled();
    const QRectF pill = QRectF{rect()}.adjusted(pillRing, pillRing, -pillRing, -pillRing);
    const bool isQuiet = m_look == Look::Quiet;
    QColor fill = isFilled                                   ? theme.accent
                  : isQuiet || (underMouse() && isEnabled()) ? theme.hover
                                                             : theme.window;
    if (isDown() || (isQuiet && underMouse())) fill = fill.darker(isDown() ? 112 : 104);
    Painting::roundedBox(painter, pill, pill.height() / 2, fill, isFilled || isQuiet ? fill : theme.control);
    painter.setPen(isFilled ? theme.onAccent : isEnabled() ? theme.text : theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::BodyStrong, rect(), Qt::AlignHCenter, text());
}

PaintedButton::Ring PillButton::ring() const { return {QRectF{rect()}, height() / 2.0}; }
