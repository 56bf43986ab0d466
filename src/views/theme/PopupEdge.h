#pragma once

#include <QRegion>

class QPainter;
class QRect;

/// The edge of what stands over other windows: menus, small frames, messages. Rounded corners and a
/// hairline. The corners are cut off, not transparent: not every desktop composes windows.
namespace PopupEdge {

/// What is left of `bounds`, for QWidget::setMask.
QRegion shape(const QRect &bounds);

void paint(QPainter &painter, const QRect &bounds);

} // namespace PopupEdge
