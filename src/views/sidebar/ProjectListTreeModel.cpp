#include "views/sidebar/ProjectListTreeModel.h"

#include "model/records/KWSmartProject.h"

#include <functional>

void ProjectListTreeModel::setRoot(KWProjectListNode *root)
{
    beginResetModel();
    m_root = root;
    m_topLevel.clear();
    if (root) {
        const auto &parts = root->children();
        for (const auto &part : parts) {
            if (part == parts.back() && parts.size() > 1 && !part->children().empty())
                m_topLevel.append(part.get());
            for (const auto &child : part->children())
                if (!isSectionHeader(*child) || !child->children().empty()) m_topLevel.append(child.get());
        }
    }
    endResetModel();
}

KWProjectListNode *ProjectListTreeModel::pointerAt(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<KWProjectListNode *>(index.internalPointer()) : nullptr;
}

bool ProjectListTreeModel::isSpacer(const QModelIndex &index) const
{
    return index.isValid() && pointerAt(index)->parent() == m_root;
}

KWProjectListNode *ProjectListTreeModel::nodeAt(const QModelIndex &index) const
{
    return isSpacer(index) ? nullptr : pointerAt(index);
}

QModelIndex ProjectListTreeModel::indexOf(const KWProjectListNode &node) const
{
    auto *pointer = const_cast<KWProjectListNode *>(&node);
    const bool isTopLevel = node.parent() && node.parent()->parent() == m_root;
    const int row = isTopLevel ? int(m_topLevel.indexOf(pointer)) : node.row();
    return row < 0 ? QModelIndex{} : createIndex(row, 0, pointer);
}

QModelIndex ProjectListTreeModel::find(KWProjectListNodeType type, const QString &entityID) const
{
    const std::function<KWProjectListNode *(KWProjectListNode &)> search =
        [&](KWProjectListNode &node) -> KWProjectListNode * {
        if (node.type() == type && node.entityID() == entityID) return &node;
        for (const auto &child : node.children())
            if (KWProjectListNode *found = search(*child)) return found;
        return nullptr;
    };
    for (KWProjectListNode *node : m_topLevel)
        if (node->parent() != m_root)
            if (const KWProjectListNode *found = search(*node)) return indexOf(*found);
    return {};
}

bool ProjectListTreeModel::isSectionHeader(const KWProjectListNode &node)
{
    if (node.type() != KWProjectListNodeType::smartProject) return false;
    for (const KWSmartProject *header : {&KWSmartProject::project(), &KWSmartProject::tag(),
                                         &KWSmartProject::filter(), &KWSmartProject::subcal()})
        if (node.entityID() == header->identifier()) return true;
    return false;
}

bool ProjectListTreeModel::isSectionHeader(const QModelIndex &index) const
{
    const KWProjectListNode *node = nodeAt(index);
    return node && isSectionHeader(*node);
}

bool ProjectListTreeModel::isInbox(const QModelIndex &index) const
{
    const KWProjectListNode *node = nodeAt(index);
    return node && node->type() == KWProjectListNodeType::project &&
           node->parent() == m_root->children().front().get();
}

int ProjectListTreeModel::indentation(const QModelIndex &index) const
{
    int depth = 0;
    for (QModelIndex above = parent(index); above.isValid(); above = parent(above))
        if (!isSectionHeader(above)) ++depth;
    return depth;
}

QModelIndex ProjectListTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    if (!parent.isValid()) return createIndex(row, 0, m_topLevel.at(row));
    return createIndex(row, 0, pointerAt(parent)->children().at(std::size_t(row)).get());
}

QModelIndex ProjectListTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || isSpacer(child)) return {};
    const KWProjectListNode *above = pointerAt(child)->parent();
    return above && above->parent() && above->parent() != m_root ? indexOf(*above) : QModelIndex{};
}

int ProjectListTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid()) return int(m_topLevel.size());
    if (parent.column() != 0 || isSpacer(parent)) return 0;
    return int(pointerAt(parent)->children().size());
}

QVariant ProjectListTreeModel::data(const QModelIndex &index, int role) const
{
    const KWProjectListNode *node = nodeAt(index);
    if (!node) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return node->title();
    default:
        return {};
    }
}

Qt::ItemFlags ProjectListTreeModel::flags(const QModelIndex &index) const
{
    const KWProjectListNode *node = nodeAt(index);
    if (!node) return Qt::NoItemFlags;
    switch (node->type()) {
    case KWProjectListNodeType::divider:
    case KWProjectListNodeType::emptyHolder:
    case KWProjectListNodeType::none:
        return Qt::NoItemFlags;
    default:
        return isSectionHeader(index) ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }
}
