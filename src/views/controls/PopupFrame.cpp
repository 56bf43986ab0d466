#include "views/controls/PopupFrame.h"

#include "views/theme/PopupEdge.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

PopupFrame::PopupFrame(QWidget *parent, Qt::WindowFlags kind) : QFrame(parent, kind | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_DeleteOnClose, kind == Qt::Popup);
}

QRect PopupFrame::within(const QRect &bounds, const QRect &wanted)
{
    QRect placed{wanted.topLeft(), wanted.size().boundedTo(bounds.size())};
    placed.moveRight(std::min(placed.right(), bounds.right()));
    placed.moveBottom(std::min(placed.bottom(), bounds.bottom()));
    placed.moveLeft(std::max(placed.left(), bounds.left()));
    placed.moveTop(std::max(placed.top(), bounds.top()));
    return placed;
}

void PopupFrame::place(const QPoint &position, const QSize &size)
{
    const QScreen *there = QGuiApplication::screenAt(position);
    if (!there) there = (parentWidget() ? parentWidget() : this)->screen();
    setGeometry(within(there->availableGeometry(), {position, size}));
}

int PopupFrame::heightOfRows(const QAbstractItemView &view, int most)
{
    int height = 0;
    for (int row = 0; row < view.model()->rowCount() && height < most; ++row)
        height += view.sizeHintForRow(row);
    return std::min(height, most);
}

void PopupFrame::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    PopupEdge::paint(painter, rect());
}

void PopupFrame::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    setMask(PopupEdge::shape(rect()));
}
