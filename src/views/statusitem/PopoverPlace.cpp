#include "views/statusitem/PopoverPlace.h"

#include "views/controls/PopupFrame.h"

#include <QGuiApplication>
#include <QScreen>

QPoint placeOfPopover(const QRect &anchor, const QWidget &window)
{
    const QScreen *anchored = anchor.isEmpty() ? nullptr : QGuiApplication::screenAt(anchor.center());
    const QRect bounds = (anchored ? anchored : window.screen())->availableGeometry();
    QPoint place = bounds.center() - window.rect().center();
    if (!anchor.isEmpty()) {
        const bool isBelow = anchor.center().y() < bounds.center().y();
        place = {anchor.center().x() - window.width() / 2,
                 isBelow ? anchor.bottom() : anchor.top() - window.height()};
    }
    return PopupFrame::within(bounds, {place, window.size()}).topLeft();
}
