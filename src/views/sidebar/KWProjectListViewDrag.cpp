// How the sidebar is dragged in: rows among each other, and tasks onto rows.
#include "views/sidebar/KWProjectListView.h"
#include "views/tasklist/TaskMimeData.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>

void KWProjectListView::beginDrag()
{
    m_expandedItemsWhenBeginDrag.clear();
    rememberExpandedItems({});
}

void KWProjectListView::rememberExpandedItems(const QModelIndex &parent)
{
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (isExpanded(index)) m_expandedItemsWhenBeginDrag.append(index);
        rememberExpandedItems(index);
    }
}

// Waiting over a row folds it as well as it unfolds it.
void KWProjectListView::endDrag()
{
    setDropMark(std::nullopt);
    for (const QPersistentModelIndex &each : std::exchange(m_expandedItemsWhenBeginDrag, {}))
        if (each.isValid()) setExpanded(each, true);
}

void KWProjectListView::startDrag(Qt::DropActions)
{
    const QModelIndex index = currentIndex();
    const KWProjectListNode *node = m_model.nodeAt(index);
    if (!node || !(m_model.flags(index) & Qt::ItemIsDragEnabled)) return;
    auto *drag = new QDrag{this};
    drag->setMimeData(SidebarMimeData::writeItems(*node));
    drag->setPixmap(viewport()->grab(visualRect(index)));
    drag->exec(Qt::MoveAction);
    endDrag();
}

std::optional<SidebarDropTarget> KWProjectListView::dropTarget(const QDropEvent &event) const
{
    const QPoint position = event.position().toPoint();
    const QModelIndex index = indexAt(position);
    return SidebarDropTarget::at(position, index, visualRect(index), isExpanded(index), *event.mimeData(),
                                 m_model);
}

void KWProjectListView::setDropMark(const std::optional<SidebarDropTarget> &target)
{
    m_dropMark = target;
    viewport()->update();
}

void KWProjectListView::dragEnterEvent(QDragEnterEvent *event)
{
    const bool isKnown = event->mimeData()->hasFormat(TaskMimeData::type) ||
                         event->mimeData()->hasFormat(SidebarMimeData::type);
    event->setAccepted(isKnown);
    if (!isKnown) return;
    setState(DraggingState);
    beginDrag();
}

void KWProjectListView::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeView::dragMoveEvent(event); // scrolls, and unfolds what is waited over
    setDropMark(dropTarget(*event));
    if (m_dropMark) event->setDropAction(Qt::MoveAction);
    event->setAccepted(m_dropMark.has_value());
}

void KWProjectListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTreeView::dragLeaveEvent(event);
    endDrag();
}

void KWProjectListView::dropEvent(QDropEvent *event)
{
    const auto target = dropTarget(*event);
    stopAutoScroll();
    setState(NoState);
    event->setAccepted(target.has_value());
    if (target && target->place)
        Q_EMIT nodeDropped(SidebarMimeData::nodeIn(*event->mimeData(), m_model), *target->place);
    else if (target)
        Q_EMIT sidebarDropedTask(TaskMimeData::idsIn(*event->mimeData()), target->node);
    endDrag();
}

void KWProjectListView::paintDropMark(QPainter &painter) const
{
    if (!m_dropMark) return;
    const QRect mark = m_dropMark->mark.adjusted(Metrics::rowOutset, 0, -Metrics::rowOutset, 0);
    if (m_dropMark->node)
        Painting::focusRing(painter, mark, Metrics::rowRadius);
    else
        painter.fillRect(mark, Theme::current().accent);
}
