#pragma once

#include "model/store/KWTaskListItemModel.h"

#include <QHash>

#include <vector>

/// The rows of a list as the trees that their parents make of them. A row whose parent is not among the
/// rows, or is closed where it is open or the other way round, is a root; so is one of the rows that are
/// each other's parents. Points into the rows, which must stay.
class RowTree {
public:
    using Rows = std::vector<const KWTaskListItemModel *>;

    explicit RowTree(const QList<KWTaskListItemModel> &rows);

    const Rows &roots() const { return m_roots; }
    /// The rows, each followed by all that is below it, children in the order of their parent.
    QList<KWTaskListItemModel> flattened(const Rows &roots) const;

private:
    void sortChildren();
    void findRoots(const QList<KWTaskListItemModel> &rows);

    Rows m_roots;
    QHash<QString, Rows> m_children; // by the id of the parent
};
