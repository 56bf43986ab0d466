#include "views/focus/FieldBorderView.h"

#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

FieldBorderView::FieldBorderView(QLineEdit &field, QLabel &unit, QWidget *parent)
    : QWidget(parent), m_field(field)
{
    field.setFrame(false);
    field.installEventFilter(this);
    setFocusProxy(&field);
    setFixedHeight(Metrics::scaled(Metrics::control));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *row = new QHBoxLayout{this};
    row->setContentsMargins(Metrics::grid * 2, 3, Metrics::gap, 3);
    row->setSpacing(Metrics::grid);
    row->addWidget(&field);
    row->addWidget(&unit);
}

void FieldBorderView::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const Theme &theme = Theme::current();
    Painting::roundedBox(painter, rect().adjusted(2, 2, -2, -2), Metrics::rowRadius, theme.window,
                         theme.control);
    if (m_field.hasFocus()) Painting::focusRing(painter, rect(), Metrics::rowRadius + 2);
}

void FieldBorderView::mousePressEvent(QMouseEvent *) { m_field.setFocus(Qt::MouseFocusReason); }

bool FieldBorderView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
    return QWidget::eventFilter(watched, event);
}
