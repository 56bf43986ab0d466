#include "views/controls/MenuPlace.h"

#include <QMenu>
#include <QScreen>

namespace {

constexpr int distance = 2;

} // namespace

void popUpAt(const QRect &relativeTo, const QWidget &in, Qt::Edge preferredEdge, QMenu &menu)
{
    menu.setAttribute(Qt::WA_DeleteOnClose);
    const QRect target{in.mapToGlobal(relativeTo.topLeft()), relativeTo.size()};
    const QRect screen = in.screen()->availableGeometry();
    const QSize size = menu.sizeHint();
    const int above = target.top() - distance - size.height();
    const int below = target.bottom() + 1 + distance;
    const bool isAbove = preferredEdge == Qt::TopEdge
                             ? above >= screen.top()
                             : below + size.height() > screen.bottom() + 1 && above >= screen.top();
    const int x = in.isRightToLeft() ? target.left() : target.right() + 1 - size.width();
    menu.popup({x, isAbove ? above : below});
}
