#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
struct HabitDay;

/// The circle that a day of a habit is: filled with a tick when it is done, a ring as long as the part of the
/// goal that was reached, crossed when it was not achieved, with a dash when it was skipped, dashed when it
/// was not due, an empty ring when it is open.
namespace HabitDayMark {

/// Leaves the painter as it was. `color` is the habit's.
void paint(QPainter &painter, const QRectF &circle, const HabitDay &day, const QColor &color);

/// A ring with the part of it from the top on, clockwise, in the colour.
void paintProgress(QPainter &painter, const QRectF &circle, double progress, const QColor &color);

} // namespace HabitDayMark
