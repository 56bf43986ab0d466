#pragma once

#include <Qt>

class QMenu;
class QRect;
class QWidget;

/// Shows the menu at `relativeTo`, a rectangle of the widget `in`, on the side of `preferredEdge`:
/// Qt::TopEdge or Qt::BottomEdge; on the other side where the screen ends. Both end in one line. The menu is
/// deleted when it goes.
void popUpAt(const QRect &relativeTo, const QWidget &in, Qt::Edge preferredEdge, QMenu &menu);
