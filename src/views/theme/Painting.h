#pragma once

#include "model/records/KWConstants.h"

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

/// The few shapes that several views paint alike. All leave the painter as they found it.
namespace Painting {

/// A filled rounded box; an outline of one pixel when `outline` is valid.
void roundedBox(QPainter &painter, const QRectF &bounds, double radius, const QColor &fill,
                const QColor &outline = {});

/// The mark of keyboard focus: an accent outline of 1.5 pixels inside `bounds`.
void focusRing(QPainter &painter, const QRectF &bounds, double radius);

/// What a checkbox shows. `checked` runs from 0, open, to 1, closed; in between it is on its way.
struct Checkbox {
    double checked = 0;
    KWTaskPriority priority = KWTaskPriorityNone;
    bool isAbandoned = false; ///< closed by a cross instead of a tick
    bool isHovered = false;
};
void checkbox(QPainter &painter, const QRectF &bounds, const Checkbox &state);

/// The colour dot of a list; nothing for an empty or unreadable "#rrggbb" but a neutral one.
void dot(QPainter &painter, const QPointF &centre, const QString &color);

/// Width of the pill around `text`.
int pillWidth(const QString &text);
/// A tag's name in a pill, in the caption font.
void pill(QPainter &painter, const QRect &bounds, const QString &text);

} // namespace Painting
