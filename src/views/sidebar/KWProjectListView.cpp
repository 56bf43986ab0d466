#include "views/sidebar/KWProjectListView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/FocusMark.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int unfoldingDelay = 700; // milliseconds over a folded row

} // namespace

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
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(false);
    setAutoExpandDelay(unfoldingDelay);
    viewport()->setAutoFillBackground(false);
    setItemDelegate(m_delegate);
    setModel(&m_model);

    connect(this, &QTreeView::expanded, this, &KWProjectListView::outlineViewItemDidExpand);
    connect(this, &QTreeView::collapsed, this, &KWProjectListView::outlineViewItemDidCollapse);
    connect(m_delegate, &ProjectRowDelegate::named, this, [this](QWidget *editor, const QString &name) {
        if (KWProjectListNode *node = endEditing(editor)) Q_EMIT named(node, name);
    });
    connect(m_delegate, &ProjectRowDelegate::namingAbandoned, this, [this](QWidget *editor) {
        if (KWProjectListNode *node = endEditing(editor)) Q_EMIT namingAbandoned(node);
    });
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
}

void KWProjectListView::setRoot(KWProjectListNode *root)
{
    const int scrolled = verticalScrollBar()->value();
    m_isTakingOver = true;
    setAutoScroll(false); // scrolling to the selected row would unfold what hides it
    m_model.setRoot(root);
    takeOver({});
    const QModelIndex selected = m_model.find(m_selectedType, m_selectedID);
    if (selected.isValid() && !selectionModel()->isSelected(selected)) setCurrentIndex(selected);
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

void KWProjectListView::setCountOf(ProjectListTreeModel::CountOf countOf)
{
    m_model.setCountOf(std::move(countOf));
    viewport()->update();
}

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
    if (isVisible()) scrollTo(index); // before it is, there is no height to scroll by
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

void KWProjectListView::editName(KWProjectListNodeType type, const QString &entityID,
                                 const std::optional<QString> &typed)
{
    const QModelIndex index = m_model.find(type, entityID);
    if (!(m_model.flags(index) & Qt::ItemIsEditable)) return;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
        setExpanded(above, true);
    if (typed) m_delegate->setTypedName(*typed);
    scrollTo(index);
    m_editedIndex = index;
    setState(NoState); // an editor that is closed may still be on its way out
    edit(index);
}

bool KWProjectListView::finishNaming()
{
    if (QWidget *editor = indexWidget(m_editedIndex)) m_delegate->finish(*editor);
    return !indexWidget(m_editedIndex);
}

KWProjectListNode *KWProjectListView::endEditing(QWidget *editor)
{
    KWProjectListNode *node = m_model.nodeAt(m_editedIndex);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return node;
}

void KWProjectListView::requestAddition(KWProjectListNode &node)
{
    KWProjectListNode *parent = &node;
    const auto takesMore = [this](const KWProjectListNode &each) {
        const bool holdsTags = each.type() == KWProjectListNodeType::tag && each.parent() &&
                               each.parent()->type() != KWProjectListNodeType::tag;
        return holdsTags || each.type() == KWProjectListNodeType::group ||
               m_model.isSectionHeader(m_model.indexOf(each));
    };
    while (parent && !takesMore(*parent))
        parent = parent->parent();
    if (parent) Q_EMIT addRequested(parent);
}

bool KWProjectListView::performKey(const QKeyEvent &event, KWProjectListNode &node)
{
    const QModelIndex index = currentIndex();
    const bool isHeader = m_model.isSectionHeader(index);
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (isHeader)
            setExpanded(index, !isExpanded(index));
        else if (event.key() != Qt::Key_Space)
            Q_EMIT opened(&node);
        return isHeader || event.key() != Qt::Key_Space;
    case Qt::Key_F2:
        if (node.type() == KWProjectListNodeType::filter)
            Q_EMIT editRequested(&node);
        else
            editName(node.type(), node.entityID());
        return true;
    case Qt::Key_Insert:
        requestAddition(node);
        return true;
    case Qt::Key_Delete:
        Q_EMIT removalRequested(&node);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (event.modifiers() != Qt::AltModifier) return false;
        Q_EMIT moveRequested(&node, event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    default:
        return false;
    }
}

void KWProjectListView::keyPressEvent(QKeyEvent *event)
{
    FocusMark::keyPressed(*this, *event);
    KWProjectListNode *node = m_model.nodeAt(currentIndex());
    if (!node || !performKey(*event, *node)) QTreeView::keyPressEvent(event);
}

void KWProjectListView::mousePressEvent(QMouseEvent *event)
{
    FocusMark::mousePressed(*this);
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (index.isValid() && event->button() == Qt::LeftButton) {
        const QRect row = visualRect(index);
        if (m_delegate->addBounds(row, layoutDirection(), index).contains(position)) {
            Q_EMIT addRequested(m_model.nodeAt(index));
            return;
        }
        if (m_delegate->foldBounds(row, layoutDirection(), index).contains(position)) {
            setExpanded(index, !isExpanded(index));
            return;
        }
    }
    if (event->button() == Qt::RightButton) return; // asks for a menu, selects nothing
    QTreeView::mousePressEvent(event);
}

void KWProjectListView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    KWProjectListNode *node = m_model.nodeAt(index);
    if (!node) return;
    const QPoint below = visualRect(index).center();
    Q_EMIT menuRequested(node, byKey ? viewport()->mapToGlobal(below) : event->globalPos());
}

void KWProjectListView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    const Theme &theme = Theme::current();
    QPainter painter{viewport()};
    if (m_scrollViewIsScrolled) {
        const QRect edge{0, 0, viewport()->width(), Metrics::grid};
        QColor shade = theme.hairline;
        QLinearGradient shadow{edge.topLeft(), edge.bottomLeft()};
        shadow.setColorAt(0, shade);
        shade.setAlpha(0);
        shadow.setColorAt(1, shade);
        painter.fillRect(edge, shadow);
    }
    paintDropMark(painter);
}

void KWProjectListView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    m_scrollViewIsScrolled = verticalScrollBar()->value() > 0;
    viewport()->update(0, 0, viewport()->width(), std::abs(dy) + 2 * Metrics::grid);
}

void KWProjectListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    if (std::exchange(m_lastWidth, width()) != width()) viewport()->update(); // titles end elsewhere
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
