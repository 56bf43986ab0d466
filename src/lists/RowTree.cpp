#include "lists/RowTree.h"

#include <QSet>

#include <algorithm>
#include <tuple>

namespace {

using Row = KWTaskListItemModel;

bool isChild(const Row &row, const QHash<QString, const Row *> &parents)
{
    const Row *parent = row.parentId.isEmpty() ? nullptr : parents.value(row.parentId);
    return parent && parent->isClosed() == row.isClosed();
}

} // namespace

RowTree::RowTree(const QList<Row> &rows)
{
    QHash<QString, const Row *> parents;
    for (const Row &each : rows)
        if (!each.parentId.isEmpty()) parents.insert(each.parentId, nullptr);
    if (!parents.isEmpty())
        for (const Row &each : rows)
            if (const auto parent = parents.find(each.sid); parent != parents.end()) *parent = &each;

    for (const Row &each : rows)
        if (isChild(each, parents))
            m_children[each.parentId].push_back(&each);
        else
            m_roots.push_back(&each);
    if (m_children.isEmpty()) return;
    sortChildren();
    findRoots(rows);
}

void RowTree::sortChildren()
{
    for (Rows &each : m_children)
        std::ranges::sort(each, {}, [](const Row *child) {
            return std::tuple{child->childPlace, child->sortOrder, child->rowID};
        });
}

// Rows that no root leads to go round in circles: each circle is cut at its first row.
void RowTree::findRoots(const QList<Row> &rows)
{
    QSet<const Row *> lost;
    for (const Rows &each : std::as_const(m_children))
        lost += QSet<const Row *>(each.begin(), each.end());
    const auto reach = [&](Rows waiting) {
        while (!waiting.empty()) {
            const Row *row = waiting.back();
            waiting.pop_back();
            lost.remove(row);
            if (const auto children = m_children.constFind(row->sid); children != m_children.cend())
                waiting.insert(waiting.end(), children->begin(), children->end());
        }
    };
    reach(m_roots);
    for (const Row &each : rows) {
        if (lost.isEmpty()) return;
        if (!lost.contains(&each)) continue;
        std::erase(m_children[each.parentId], &each);
        m_roots.push_back(&each);
        reach({&each});
    }
}

QList<Row> RowTree::flattened(const Rows &roots) const
{
    QList<Row> flat;
    flat.reserve(qsizetype(roots.size()));
    Rows waiting(roots.rbegin(), roots.rend());
    while (!waiting.empty()) {
        const Row *row = waiting.back();
        waiting.pop_back();
        flat.append(*row);
        if (m_children.isEmpty()) continue;
        if (const auto children = m_children.find(row->sid); children != m_children.end())
            waiting.insert(waiting.end(), children->rbegin(), children->rend());
    }
    return flat;
}
