#pragma once

#include "views/sidebar/ProjectListTreeModel.h"
#include "views/sidebar/ProjectRowDelegate.h"

#include <QTreeView>

/// The tree of lists in the sidebar. Arrows move and select, left and right fold, Space folds a
/// section. What is folded, selected and scrolled to survives a new tree.
class KWProjectListView : public QTreeView {
    Q_OBJECT

public:
    explicit KWProjectListView(QWidget *parent = nullptr);

    ProjectListTreeModel &treeModel() { return m_model; }

    /// Shows that tree; see ProjectListTreeModel::setRoot(). Takes each node's folding from the node
    /// and installs its three handlers, so that the rows follow what is set on the nodes. The row
    /// selected before stays selected when it is still there, which is not announced.
    void setRoot(KWProjectListNode *root);

    void setCountOf(ProjectRowDelegate::CountOf countOf);
    void redrawCounts();

    /// Null when nothing is selected.
    KWProjectListNode *selectedNode() const;
    /// Selects, unfolds what hides the row, and announces; false when there is no such row. Does nothing
    /// to a row that is selected already.
    bool selectNode(KWProjectListNodeType type, const QString &entityID);
    /// For a list that has no row; not announced.
    void selectNothing();

Q_SIGNALS:
    void nodeSelected(KWProjectListNode *node);
    /// The person folded or unfolded a row; the node itself is not set yet.
    void expansionChanged(KWProjectListNode *node, bool isExpanded);
    /// Enter on a list: go on to its tasks.
    void opened(KWProjectListNode *node);

protected:
    void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override {}
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void takeOver(const QModelIndex &parent);
    void installHandlers(KWProjectListNode &node);
    int spacerHeight() const;
    int heightOfRowsBelow(const QModelIndex &parent) const;
    void announceExpansion(const QModelIndex &index, bool isExpanded);
    void followExpansion(KWProjectListNodeType type, const QString &entityID);

    ProjectListTreeModel m_model;
    ProjectRowDelegate *m_delegate;
    KWProjectListNodeType m_selectedType = KWProjectListNodeType::none;
    QString m_selectedID;
    bool m_isTakingOver = false;
};
