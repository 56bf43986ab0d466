#include "views/theme/PopupEdge.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QPainterPath>

QRegion PopupEdge::shape(const QRect &bounds)
{
    QPainterPath path;
    path.addRoundedRect(bounds, Metrics::popupRadius, Metrics::popupRadius);
    return {path.toFillPolygon().toPolygon()};
}

void PopupEdge::paint(QPainter &painter, const QRect &bounds)
{
    const Theme &theme = Theme::current();
    painter.fillRect(bounds, theme.popup);
    // On a window of the same colour a hairline alone would not part the two.
    Painting::roundedBox(painter, bounds, Metrics::popupRadius, theme.popup, theme.popupEdge);
}
