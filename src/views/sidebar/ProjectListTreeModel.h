#pragma once

#include "lists/KWProjectListNode.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QList>

/// The sidebar's tree for Qt's views. The three children of the root (top, centre, bottom) are not
/// rows themselves: their children follow each other, with one empty row, the spacer, before those of
/// the bottom. Sections without rows are left out. The nodes belong to whoever built them and outlive their
/// time in the model. Main thread only.
class ProjectListTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    using CountOf = std::function<std::optional<int>(const KWProjectListNode &)>;

    explicit ProjectListTreeModel(QObject *parent = nullptr);
    ~ProjectListTreeModel() override;

    /// Shows that tree, or nothing for null. Call it again after every change of the tree, and before
    /// the tree goes. Rows of the same kind and id stay the same rows: they are moved, new ones inserted
    /// and those that are gone removed, so that indexes of the others stay good.
    void setRoot(KWProjectListNode *root);

    /// Who knows the numbers that stand beside the rows, and are spoken with their titles.
    void setCountOf(CountOf countOf);
    /// 0 for a row without a number.
    int countOf(const QModelIndex &index) const;

    /// The node of a row; null for the spacer, for an invalid index, and for a row that is about to go.
    KWProjectListNode *nodeAt(const QModelIndex &index) const;
    QModelIndex indexOf(const KWProjectListNode &node) const;
    /// The row of that kind and id, wherever it stands; invalid when there is none.
    QModelIndex find(KWProjectListNodeType type, const QString &entityID) const;

    bool isSpacer(const QModelIndex &index) const;
    /// Whether the row heads a section: it folds, and shows no list of its own.
    bool isSectionHeader(const QModelIndex &index) const;
    /// Whether the row is the list of what has no list yet.
    bool isInbox(const QModelIndex &index) const;
    /// How many rows stand above it in the tree, section headers not counted.
    int indentation(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return 1; }
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row;
    using Nodes = QList<KWProjectListNode *>;

    Row &rowAt(const QModelIndex &index) const;
    QModelIndex indexOf(const Row &row) const;
    Nodes nodesBelow(const Row &row) const;
    void assign(const Nodes &nodes);
    void arrange(Row &parent);
    void insert(Row &parent, qsizetype at, const Nodes &nodes);
    void move(Row &row, Row &parent, int at);
    void removeBehind(Row &parent);
    QString spokenText(const QModelIndex &index) const;

    CountOf m_countOf;
    KWProjectListNode *m_root = nullptr;
    std::unique_ptr<Row> m_rootRow;
    QHash<QString, Row *> m_rows; // by kind and id
};
