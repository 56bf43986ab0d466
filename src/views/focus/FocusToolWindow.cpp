#include "views/focus/FocusToolWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusPresenter.h"
#include "views/theme/Metrics.h"
#include "views/theme/PopupEdge.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

FocusToolWindow::FocusToolWindow(FocusPresenter &presenter)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , m_presenter(presenter)
    , m_panel(new FocusPanel{presenter, FocusRing::Size::Small})
    , m_head(new QHBoxLayout)
{
    setWindowTitle(KWLocalizedString("Focus"));
    setAttribute(Qt::WA_QuitOnClose, false);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap + Metrics::grid);
    column->setSpacing(Metrics::grid);
    column->addLayout(m_head);
    column->addWidget(m_panel);
    column->addStretch(1);
    setFocusProxy(m_panel);
}

void FocusToolWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) return hide();
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) return m_panel->performFirst();
    QWidget::keyPressEvent(event);
}

void FocusToolWindow::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    PopupEdge::paint(painter, rect());
}

void FocusToolWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setMask(PopupEdge::shape(rect()));
}
