#pragma once

#include "views/sidebar/ProjectListTreeModel.h"
#include "views/sidebar/ProjectRowDelegate.h"
#include "views/sidebar/SidebarDropTarget.h"

#include <QTreeView>

/// The tree of lists in the sidebar. Arrows move and select, left and right fold, Space folds a
/// section; F2 names, Insert adds, Delete removes, Alt+Up and Alt+Down move. What is folded, selected,
/// scrolled to and being typed survives a new tree. Rows are dragged among each other, and tasks onto rows.
class KWProjectListView : public QTreeView {
    Q_OBJECT

public:
    explicit KWProjectListView(QWidget *parent = nullptr);

    ProjectListTreeModel &treeModel() { return m_model; }

    /// Shows that tree; see ProjectListTreeModel::setRoot(). Takes each node's folding from the node
    /// and installs its three handlers, so that the rows follow what is set on the nodes. The row
    /// selected before stays selected when it is still there, which is not announced.
    void setRoot(KWProjectListNode *root);

    void setCountOf(ProjectListTreeModel::CountOf countOf);

    /// Null when nothing is selected.
    KWProjectListNode *selectedNode() const;
    /// Selects, unfolds what hides the row, and announces; false when there is no such row. Does nothing
    /// to a row that is selected already.
    bool selectNode(KWProjectListNodeType type, const QString &entityID);
    /// For a list that has no row; not announced.
    void selectNothing();

    /// Lets the name of that row be typed in place, beginning with `typed` where that is given.
    void editName(KWProjectListNodeType type, const QString &entityID,
                  const std::optional<QString> &typed = std::nullopt);

    /// Takes the name that is being typed, if one is, as Enter does; false when it is refused and still
    /// typed.
    bool finishNaming();

    /// The rows are scrolled away under a shadow at the top.
    bool scrollViewIsScrolled() const { return m_scrollViewIsScrolled; }

Q_SIGNALS:
    void nodeSelected(KWProjectListNode *node);
    /// The person folded or unfolded a row; the node itself is not set yet.
    void expansionChanged(KWProjectListNode *node, bool isExpanded);
    /// Enter on a list: go on to its tasks.
    void opened(KWProjectListNode *node);

    /// A name was typed, or it was given up. The editor is closed.
    void named(KWProjectListNode *node, const QString &name);
    void namingAbandoned(KWProjectListNode *node);
    /// Something new is wanted in the section, folder or tag `parent`.
    void addRequested(KWProjectListNode *parent);
    void removalRequested(KWProjectListNode *node);
    /// F2 on a filter, which has more than a name.
    void editRequested(KWProjectListNode *node);
    /// By `step` rows among those beside it.
    void moveRequested(KWProjectListNode *node, int step);
    void menuRequested(KWProjectListNode *node, const QPoint &globalPosition);
    void nodeDropped(KWProjectListNode *node, const SidebarDrop::Place &place);
    void sidebarDropedTask(const QStringList &taskIDs, KWProjectListNode *node);

protected:
    void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override {}
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void takeOver(const QModelIndex &parent);
    void installHandlers(KWProjectListNode &node);
    int spacerHeight() const;
    int heightOfRowsBelow(const QModelIndex &parent) const;
    void outlineViewItemDidExpand(const QModelIndex &index) { announceExpansion(index, true); }
    void outlineViewItemDidCollapse(const QModelIndex &index) { announceExpansion(index, false); }
    void announceExpansion(const QModelIndex &index, bool isExpanded);
    std::optional<SidebarDropTarget> dropTarget(const QDropEvent &event) const;
    void setDropMark(const std::optional<SidebarDropTarget> &target);
    /// What is unfolded when a drag comes in is unfolded when it has gone.
    void beginDrag();
    void endDrag();
    void rememberExpandedItems(const QModelIndex &parent);
    void paintDropMark(QPainter &painter) const;
    bool performKey(const QKeyEvent &event, KWProjectListNode &node);
    void requestAddition(KWProjectListNode &node);
    KWProjectListNode *endEditing(QWidget *editor);
    void followExpansion(KWProjectListNodeType type, const QString &entityID);

    ProjectListTreeModel m_model;
    ProjectRowDelegate *m_delegate;
    KWProjectListNodeType m_selectedType = KWProjectListNodeType::none;
    QString m_selectedID;
    QPersistentModelIndex m_editedIndex;
    QList<QPersistentModelIndex> m_expandedItemsWhenBeginDrag;
    std::optional<SidebarDropTarget> m_dropMark;
    bool m_isTakingOver = false;
    bool m_scrollViewIsScrolled = false;
    int m_lastWidth = 0;
};
