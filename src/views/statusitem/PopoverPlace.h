#pragma once

#include <QPoint>

class QRect;
class QWidget;

/// Where the window stands beside `anchor`, the item in the status area, whole on its screen; in the middle
/// of the window's own screen without one.
QPoint placeOfPopover(const QRect &anchor, const QWidget &window);
