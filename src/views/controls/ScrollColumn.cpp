#include "views/controls/ScrollColumn.h"

#include <QApplication>
#include <QScrollBar>

ScrollColumn::ScrollColumn(QWidget *content, QWidget *parent) : QScrollArea{parent}
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, &ScrollColumn::follow);
}

// The content goes after this, and the keyboard with it.
ScrollColumn::~ScrollColumn() { disconnect(qApp, nullptr, this, nullptr); }

// What is pressed by the mouse is in sight, and a window that comes back shows what it showed.
void ScrollColumn::follow(QWidget *before, QWidget *now)
{
    const bool isByKeyboard = before && QApplication::mouseButtons() == Qt::NoButton;
    if (isByKeyboard && now && isAncestorOf(now) && now->height() <= viewport()->height())
        ensureWidgetVisible(now);
}
