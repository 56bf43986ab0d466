#include "views/calendar/ShownButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int signSide = 7;

}

ShownButton::ShownButton(QWidget *parent) : IconButton(Icon::Filter, KWLocalizedString("Shown"), parent) {}

void ShownButton::setHidesSomething(bool hides)
{
    m_hidesSomething = hides;
    const QString text = hides ? KWLocalizedString("Shown: something is hidden") : KWLocalizedString("Shown");
    setAccessibleName(text);
    setToolTip(text);
    update();
}

void ShownButton::paintContent(QPainter &painter)
{
    painter.save();
    IconButton::paintContent(painter);
    painter.restore();
    if (!m_hidesSomething) return;
    const int side = Metrics::scaled(signSide);
    const QRect sign{width() - side - Metrics::grid, Metrics::grid, side, side};
    Painting::roundedBox(painter, visual(sign), side / 2.0, Theme::current().accent, Theme::current().window);
}
