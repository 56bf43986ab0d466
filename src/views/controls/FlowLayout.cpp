#include "views/controls/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FlowLayout::~FlowLayout() { qDeleteAll(m_items); }

void FlowLayout::insertWidget(int index, QWidget *widget)
{
    addChildWidget(widget);
    m_items.insert(index, new QWidgetItem{widget});
    invalidate();
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *each : m_items)
        size = size.expandedTo(each->minimumSize());
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect &bounds)
{
    QLayout::setGeometry(bounds);
    arrange(bounds, Apply::Yes);
}

int FlowLayout::arrange(const QRect &bounds, Apply apply) const
{
    const QRect inner = bounds.marginsRemoved(contentsMargins());
    int x = inner.left();
    int y = inner.top();
    int lineHeight = 0;
    QList<std::pair<QLayoutItem *, QRect>> line;
    const auto endLine = [&] {
        for (const auto &[item, place] : std::as_const(line)) {
            const QRect centred{place.x(), y + (lineHeight - place.height()) / 2, place.width(),
                                place.height()};
            if (apply == Apply::Yes)
                item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), inner, centred));
        }
        line.clear();
    };
    for (QLayoutItem *each : m_items) {
        if (each->isEmpty()) continue;
        const QSize size = each->sizeHint().boundedTo({inner.width(), each->sizeHint().height()});
        if (!line.isEmpty() && x + size.width() > inner.right() + 1) {
            endLine();
            x = inner.left();
            y += lineHeight + spacing();
            lineHeight = 0;
        }
        line.append({each, {{x, y}, size}});
        x += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    endLine();
    return y + lineHeight - bounds.top() + contentsMargins().bottom();
}
