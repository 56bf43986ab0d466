#include "views/palette/FoundRowsView.h"

#include "views/palette/FoundRowDelegate.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QMouseEvent>

FoundRowsView::FoundRowsView(const QString &accessibleName, QWidget *parent) : QListView(parent)
{
    setObjectName(QStringLiteral("foundRows"));
    setAccessibleName(accessibleName);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new FoundRowDelegate{m_rows, this});
    setModel(&m_rows);
}

void FoundRowsView::setRows(QList<FoundRow> rows, InItsPlace other)
{
    const FoundRow *before = current();
    const QString task = before && before->kind == FoundRow::Kind::Task ? before->id : QString{};
    const int row = other == InItsPlace::Neighbour ? std::max(0, currentIndex().row()) : 0;
    m_rows.setRows(std::move(rows));
    QModelIndex next = m_rows.indexOfTask(task);
    if (!next.isValid()) next = m_rows.firstSelectable(row);
    if (!next.isValid()) next = m_rows.lastSelectable();
    setCurrentIndex(next);
}

const FoundRow *FoundRowsView::current() const
{
    return currentIndex().isValid() ? &m_rows.rowAt(currentIndex()) : nullptr;
}

bool FoundRowsView::takeKey(QKeyEvent &event)
{
    const int page = std::max(1, viewport()->height() / Metrics::scaled(Metrics::taskRow) - 1);
    switch (event.key()) {
    case Qt::Key_Down:
        step(1, 1);
        return true;
    case Qt::Key_Up:
        step(-1, 1);
        return true;
    case Qt::Key_PageDown:
        step(1, page);
        return true;
    case Qt::Key_PageUp:
        step(-1, page);
        return true;
    default:
        return false;
    }
}

// Over headings, and no farther than the last row.
void FoundRowsView::step(int direction, int count)
{
    for (int row = currentIndex().row() + direction; row >= 0 && row < m_rows.rowCount(); row += direction) {
        const QModelIndex next = m_rows.index(row);
        if (!(next.flags() & Qt::ItemIsSelectable)) continue;
        setCurrentIndex(next);
        if (--count == 0) break;
    }
}

void FoundRowsView::keyPressEvent(QKeyEvent *event)
{
    if (takeKey(*event)) return;
    if (event->key() == Qt::Key_Home)
        setCurrentIndex(m_rows.firstSelectable());
    else if (event->key() == Qt::Key_End)
        setCurrentIndex(m_rows.lastSelectable());
    else
        QListView::keyPressEvent(event);
}

void FoundRowsView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    const bool isMark = event->button() == Qt::LeftButton && index.isValid() &&
                        m_rows.rowAt(index).kind == FoundRow::Kind::Task &&
                        FoundRowDelegate::markArea(visualRect(index), layoutDirection()).contains(position);
    const QString task = isMark ? m_rows.rowAt(index).id : QString{};
    QListView::mouseReleaseEvent(event);
    if (isMark) Q_EMIT markClicked(task);
}

void FoundRowsView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    Q_EMIT currentMoved();
}
