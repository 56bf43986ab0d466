#include "views/sidebar/KWProjectListView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"

#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>

using namespace Qt::StringLiterals;

KWProjectListView::KWProjectListView(QWidget *parent)
    : QTreeView(parent)
    , m_delegate(new ProjectRowDelegate{m_model,
                                        [this](const QModelIndex &index) { return isExpanded(index); },
                                        [this] { return spacerHeight(); }, this})
{
    setObjectName(u"sidebarTree"_s);
    setAccessibleName(KWLocalizedString("Lists"));
    setHeaderHidden(true);
    setIndentation(0);
    setRootIsDecorated(false);
    setExpandsOnDoubleClick(false);
    setFrameShape(NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setItemDelegate(m_delegate);
    setModel(&m_model);

    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { announceExpansion(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { announceExpansion(index, false); });
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
}

void KWProjectListView::setRoot(KWProjectListNode *root)
{
    const int scrolled = verticalScrollBar()->value();
    m_isTakingOver = true;
    m_model.setRoot(root);
    takeOver({});
    setAutoScroll(false); // scrolling to the selected row would unfold what hides it
    if (const QModelIndex selected = m_model.find(m_selectedType, m_selectedID); selected.isValid())
        setCurrentIndex(selected);
    setAutoScroll(true);
    m_isTakingOver = false;
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrolled);
}

void KWProjectListView::takeOver(const QModelIndex &parent)
{
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        KWProjectListNode *node = m_model.nodeAt(index);
        if (!node) continue;
        installHandlers(*node);
        setExpanded(index, node->isExpanded());
        takeOver(index);
    }
}

void KWProjectListView::installHandlers(KWProjectListNode &node)
{
    const QPointer<KWProjectListView> view{this};
    node.countChangedHandler = [view](int, KWProjectListNode &changed) {
        if (view) view->update(view->m_model.indexOf(changed));
    };
    // Later: a tree that is being rebuilt sets its nodes before their rows are there.
    node.expanedChangedHandler = [view](bool, KWProjectListNode &changed) {
        if (view)
            QMetaObject::invokeMethod(
                view,
                [view, type = changed.type(), id = changed.entityID()] { view->followExpansion(type, id); },
                Qt::QueuedConnection);
        return true;
    };
    node.selectChangedHanlder = [view, changed = &node] {
        if (view && changed->isSelected()) view->selectNode(changed->type(), changed->entityID());
    };
}

void KWProjectListView::followExpansion(KWProjectListNodeType type, const QString &entityID)
{
    const QModelIndex index = m_model.find(type, entityID);
    if (const KWProjectListNode *node = m_model.nodeAt(index)) setExpanded(index, node->isExpanded());
}

void KWProjectListView::announceExpansion(const QModelIndex &index, bool isExpanded)
{
    scheduleDelayedItemsLayout(); // the spacer gives or takes
    KWProjectListNode *node = m_model.nodeAt(index);
    if (!m_isTakingOver && node && node->isExpanded() != isExpanded)
        Q_EMIT expansionChanged(node, isExpanded);
}

void KWProjectListView::setCountOf(ProjectRowDelegate::CountOf countOf)
{
    m_delegate->setCountOf(std::move(countOf));
    redrawCounts();
}

void KWProjectListView::redrawCounts() { viewport()->update(); }

KWProjectListNode *KWProjectListView::selectedNode() const
{
    return m_model.nodeAt(m_model.find(m_selectedType, m_selectedID));
}

bool KWProjectListView::selectNode(KWProjectListNodeType type, const QString &entityID)
{
    const QModelIndex index = m_model.find(type, entityID);
    if (!index.isValid() || !(m_model.flags(index) & Qt::ItemIsSelectable)) return false;
    if (selectionModel()->isSelected(index)) return true;
    setCurrentIndex(index);
    scrollTo(index);
    return true;
}

void KWProjectListView::selectNothing()
{
    m_selectedType = KWProjectListNodeType::none;
    m_selectedID.clear();
    clearSelection();
    setCurrentIndex({});
}

void KWProjectListView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (m_isTakingOver || selected.isEmpty()) return;
    KWProjectListNode *node = m_model.nodeAt(selected.indexes().constFirst());
    m_selectedType = node->type();
    m_selectedID = node->entityID();
    Q_EMIT nodeSelected(node);
}

QItemSelectionModel::SelectionFlags KWProjectListView::selectionCommand(const QModelIndex &index,
                                                                        const QEvent *event) const
{
    // Passing over a header or clicking beside the rows leaves the selection.
    const bool isSelectable = m_model.flags(index) & Qt::ItemIsSelectable;
    return isSelectable ? QTreeView::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}

void KWProjectListView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex index = currentIndex();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (m_model.isSectionHeader(index) && (isEnter || event->key() == Qt::Key_Space)) {
        setExpanded(index, !isExpanded(index));
        return;
    }
    if (KWProjectListNode *node = m_model.nodeAt(index); node && isEnter) {
        Q_EMIT opened(node);
        return;
    }
    QTreeView::keyPressEvent(event);
}

void KWProjectListView::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (index.isValid() && event->button() == Qt::LeftButton) {
        if (m_delegate->foldBounds(visualRect(index), layoutDirection(), index).contains(position)) {
            setExpanded(index, !isExpanded(index));
            return;
        }
    }
    QTreeView::mousePressEvent(event);
}

void KWProjectListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    scheduleDelayedItemsLayout();
}

int KWProjectListView::heightOfRowsBelow(const QModelIndex &parent) const
{
    int height = 0;
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        if (m_model.isSpacer(index)) continue;
        height += m_delegate->sizeHint({}, index).height();
        if (isExpanded(index)) height += heightOfRowsBelow(index);
    }
    return height;
}

// The bottom rows stand at the lower edge as long as there is room.
int KWProjectListView::spacerHeight() const
{
    return std::max(Metrics::gap, viewport()->height() - heightOfRowsBelow({}));
}
