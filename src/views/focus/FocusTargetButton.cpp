#include "views/focus/FocusTargetButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int targetPadding = 10;
constexpr int chevron = 12;

} // namespace

FocusTargetButton::FocusTargetButton(const QString &whenNone, QWidget *parent)
    : PaintedButton(parent), m_whenNone(whenNone)
{
    setObjectName(u"focusTarget"_s);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setTarget({});
}

void FocusTargetButton::setTarget(const FocusTargetChoice &target)
{
    m_target = target;
    setText(target.title.isEmpty() ? m_whenNone : target.title.simplified());
    setAccessibleName(target.title.isEmpty() ? text() : KWLocalizedString("Focusing on %1").arg(text()));
    setToolTip(target.title.isEmpty() ? QString{} : text());
    updateGeometry();
    update();
}

int FocusTargetButton::chromeWidth() const
{
    const int dot = m_target.target.isNone() ? 0 : Metrics::scaled(Metrics::dot) + Metrics::gap;
    return 2 * targetPadding + dot + Metrics::grid + Metrics::scaled(chevron);
}

QSize FocusTargetButton::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Body, text()) + chromeWidth(), Metrics::scaled(Metrics::sidebarRow)};
}

QSize FocusTargetButton::minimumSizeHint() const
{
    return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow)};
}

void FocusTargetButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    paintBackground(painter);
    int left = targetPadding;
    if (!m_target.target.isNone()) {
        const int dot = Metrics::scaled(Metrics::dot);
        Painting::dot(painter, QRectF{visual({left, 0, dot, height()})}.center(), m_target.color);
        left += dot + Metrics::gap;
    }
    const int mark = Metrics::scaled(chevron);
    const int right = width() - targetPadding - mark;
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(painter, Fonts::Role::Body, visual({left, 0, right - Metrics::grid - left, height()}),
                    leading(), text());
    Icons::paint(painter, visual({right, 0, mark, height()}), Icon::ChevronDown, mark, theme.secondaryText);
}
