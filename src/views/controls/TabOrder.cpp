#include "views/controls/TabOrder.h"

#include <QLayout>
#include <QScrollArea>

namespace {

void collect(const QWidget &widget, QWidgetList &controls);

void collect(const QLayout &layout, QWidgetList &controls)
{
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem *item = layout.itemAt(i);
        if (const QLayout *inner = item->layout()) {
            collect(*inner, controls);
        } else if (QWidget *widget = item->widget()) {
            if (widget->focusPolicy() & Qt::TabFocus) controls.append(widget);
            collect(*widget, controls);
        }
    }
}

void collect(const QWidget &widget, QWidgetList &controls)
{
    const auto *area = qobject_cast<const QScrollArea *>(&widget);
    const QWidget *inside = area ? area->widget() : &widget;
    if (inside && inside->layout()) collect(*inside->layout(), controls);
}

} // namespace

QWidgetList controlsInOrder(const QWidget &inside)
{
    QWidgetList controls;
    collect(inside, controls);
    return controls;
}

void setTabOrderOf(const QWidgetList &controls)
{
    for (qsizetype i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

bool moveFocusInTabOrder(QWidget &window, bool isForward)
{
    QWidget *from = window.focusWidget() ? window.focusWidget() : &window;
    const auto beside = [isForward](const QWidget &widget) {
        return isForward ? widget.nextInFocusChain() : widget.previousInFocusChain();
    };
    for (QWidget *each = beside(*from); each != from; each = beside(*each)) {
        const bool takesTab = each->focusPolicy() & Qt::TabFocus && !each->focusProxy();
        if (!takesTab || !each->isEnabled() || !each->isVisibleTo(&window)) continue;
        each->setFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return false;
}
