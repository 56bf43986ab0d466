#include "views/statusitem/PopoverWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/statusitem/PopoverPlace.h"
#include "views/theme/Metrics.h"
#include "views/theme/PopupEdge.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize popoverSize{380, 480};

} // namespace

PopoverWindow::PopoverWindow(CXClock &clock) : TaskListPane(clock)
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setObjectName(u"popover"_s);
    setAccessibleName(KWLocalizedString("Quick view of today"));
    setWindowTitle(KWLocalizedString("Today"));
    addField().setDetailedPlaceholder(false); // too narrow
    connect(&addField(), &KWNewTaskTextField::left, this, &QWidget::hide);
    resize(Metrics::scaled(popoverSize.width()), Metrics::scaled(popoverSize.height()));
}

void PopoverWindow::popUp(const QRect &anchor)
{
    move(placeOfPopover(anchor, *this));
    show();
    raise();
    activateWindow();
    addField().setFocus(Qt::PopupFocusReason);
}

void PopoverWindow::changeEvent(QEvent *event)
{
    TaskListPane::changeEvent(event);
    const bool isLeft = event->type() == QEvent::ActivationChange && !isActiveWindow();
    // A popup is part of it, and so is a question.
    if (isLeft && !QApplication::activePopupWidget() && !QApplication::activeModalWidget()) hide();
}

void PopoverWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) return hide();
    TaskListPane::keyPressEvent(event);
}

void PopoverWindow::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    PopupEdge::paint(painter, rect());
}

void PopoverWindow::resizeEvent(QResizeEvent *event)
{
    TaskListPane::resizeEvent(event);
    setMask(PopupEdge::shape(rect()));
}
