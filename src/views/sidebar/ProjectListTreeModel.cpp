#include "views/sidebar/ProjectListTreeModel.h"

#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"

#include <vector>

namespace {

using Type = KWProjectListNodeType;

QString keyOf(Type type, const QString &entityID) { return QString::number(int(type)) + u':' + entityID; }
QString keyOf(const KWProjectListNode &node) { return keyOf(node.type(), node.entityID()); }

bool headsSection(const KWProjectListNode &node)
{
    if (node.type() != Type::smartProject) return false;
    for (const KWSmartProject *header : {&KWSmartProject::project(), &KWSmartProject::tag(),
                                         &KWSmartProject::filter(), &KWSmartProject::subcal()})
        if (node.entityID() == header->identifier()) return true;
    return false;
}

// What the number beside a row counts.
QString countInWords(const KWProjectListNode &node, int count)
{
    const bool isOfHabits =
        node.type() == Type::smartProject && node.entityID() == KWSmartProject::habit().identifier();
    const auto &[one, several] = isOfHabits ? std::pair{"1 habit", "%1 habits"}
                                 : node.type() == Type::calsub_url
                                     ? std::pair{"1 event today", "%1 events today"}
                                     : std::pair{"1 task", "%1 tasks"};
    return count == 1 ? KWLocalizedString(one) : KWLocalizedString(several).arg(count);
}

bool canBeNamed(Type type)
{
    return type == Type::project || type == Type::group || type == Type::tag || type == Type::calsub_url;
}

} // namespace

/// What the views see of a node. It outlives the node when a new tree has one of its kind and id.
struct ProjectListTreeModel::Row {
    KWProjectListNode *node = nullptr; // none: the spacer's, or gone with the tree before
    QString key;
    QString title;
    QString color;
    QString iconName;
    bool isHeader = false;
    bool isSpacer = false;
    Row *parent = nullptr;
    int position = 0;
    std::vector<std::unique_ptr<Row>> children;

    void renumber(std::size_t from)
    {
        for (std::size_t i = from; i < children.size(); ++i) {
            children[i]->parent = this;
            children[i]->position = int(i);
        }
    }
    /// Takes over what is shown; answers whether that is another one.
    bool show(KWProjectListNode &shown)
    {
        node = isSpacer ? nullptr : &shown;
        const bool differs = title != shown.title() || color != shown.color() || iconName != shown.iconName();
        title = shown.title();
        color = shown.color();
        iconName = shown.iconName();
        return differs;
    }
};

ProjectListTreeModel::ProjectListTreeModel(QObject *parent)
    : QAbstractItemModel(parent), m_rootRow(std::make_unique<Row>())
{
}

ProjectListTreeModel::~ProjectListTreeModel() = default;

void ProjectListTreeModel::setRoot(KWProjectListNode *root)
{
    m_root = root;
    for (Row *each : std::as_const(m_rows))
        each->node = nullptr; // of the tree before
    assign(nodesBelow(*m_rootRow));
    arrange(*m_rootRow);
    removeBehind(*m_rootRow);
}

// The bottom itself stands for the spacer before its rows.
ProjectListTreeModel::Nodes ProjectListTreeModel::nodesBelow(const Row &row) const
{
    Nodes nodes;
    if (&row != m_rootRow.get()) {
        if (row.node)
            for (const auto &each : row.node->children())
                nodes.append(each.get());
        return nodes;
    }
    if (!m_root) return nodes;
    const auto &parts = m_root->children();
    for (const auto &part : parts) {
        if (part == parts.back() && parts.size() > 1 && !part->children().empty()) nodes.append(part.get());
        for (const auto &child : part->children())
            if (!headsSection(*child) || !child->children().empty()) nodes.append(child.get());
    }
    return nodes;
}

// Before any row moves: whoever asks meanwhile finds no node of the tree before.
void ProjectListTreeModel::assign(const Nodes &nodes)
{
    for (KWProjectListNode *node : nodes) {
        Row *row = m_rows.value(keyOf(*node));
        if (row && row->show(*node)) Q_EMIT dataChanged(indexOf(*row), indexOf(*row));
        if (row && row->isSpacer) continue;
        Nodes below;
        for (const auto &each : node->children())
            below.append(each.get());
        assign(below);
    }
}

// Rows that are gone come to stand behind the others.
void ProjectListTreeModel::arrange(Row &parent)
{
    const Nodes nodes = nodesBelow(parent);
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        qsizetype end = i;
        while (end < nodes.size() && !m_rows.contains(keyOf(*nodes.at(end))))
            ++end;
        if (end > i) {
            insert(parent, i, nodes.mid(i, end - i));
            i = end - 1;
            continue;
        }
        Row &row = *m_rows.value(keyOf(*nodes.at(i)));
        if (row.parent != &parent || row.position != int(i)) move(row, parent, int(i));
    }
    for (qsizetype i = 0; i < nodes.size(); ++i)
        arrange(*parent.children[std::size_t(i)]);
}

void ProjectListTreeModel::insert(Row &parent, qsizetype at, const Nodes &nodes)
{
    beginInsertRows(indexOf(parent), int(at), int(at + nodes.size() - 1));
    std::vector<std::unique_ptr<Row>> rows;
    for (KWProjectListNode *node : nodes) {
        auto row = std::make_unique<Row>();
        row->key = keyOf(*node);
        row->isHeader = headsSection(*node);
        row->isSpacer = node->parent() == m_root;
        row->show(*node);
        m_rows.insert(row->key, row.get());
        rows.push_back(std::move(row));
    }
    parent.children.insert(parent.children.begin() + at, std::make_move_iterator(rows.begin()),
                           std::make_move_iterator(rows.end()));
    parent.renumber(std::size_t(at));
    endInsertRows();
}

void ProjectListTreeModel::move(Row &row, Row &parent, int at)
{
    Row &before = *row.parent;
    const int from = row.position;
    beginMoveRows(indexOf(before), from, from, indexOf(parent), at);
    auto moving = std::move(before.children[std::size_t(from)]);
    before.children.erase(before.children.begin() + from);
    before.renumber(std::size_t(from));
    parent.children.insert(parent.children.begin() + at, std::move(moving));
    parent.renumber(std::size_t(at));
    endMoveRows();
}

void ProjectListTreeModel::removeBehind(Row &parent)
{
    const std::size_t count = std::size_t(nodesBelow(parent).size());
    if (parent.children.size() > count) {
        beginRemoveRows(indexOf(parent), int(count), int(parent.children.size()) - 1);
        const std::function<void(const Row &)> forget = [&](const Row &row) {
            m_rows.remove(row.key);
            for (const auto &each : row.children)
                forget(*each);
        };
        for (std::size_t i = count; i < parent.children.size(); ++i)
            forget(*parent.children[i]);
        parent.children.resize(count);
        endRemoveRows();
    }
    for (const auto &each : parent.children)
        removeBehind(*each);
}

ProjectListTreeModel::Row &ProjectListTreeModel::rowAt(const QModelIndex &index) const
{
    return index.isValid() ? *static_cast<Row *>(index.internalPointer()) : *m_rootRow;
}

QModelIndex ProjectListTreeModel::indexOf(const Row &row) const
{
    return &row == m_rootRow.get() ? QModelIndex{} : createIndex(row.position, 0, const_cast<Row *>(&row));
}

bool ProjectListTreeModel::isSpacer(const QModelIndex &index) const { return rowAt(index).isSpacer; }

KWProjectListNode *ProjectListTreeModel::nodeAt(const QModelIndex &index) const { return rowAt(index).node; }

QModelIndex ProjectListTreeModel::indexOf(const KWProjectListNode &node) const
{
    return find(node.type(), node.entityID());
}

QModelIndex ProjectListTreeModel::find(KWProjectListNodeType type, const QString &entityID) const
{
    const Row *row = m_rows.value(keyOf(type, entityID));
    return row && !row->isSpacer ? indexOf(*row) : QModelIndex{};
}

bool ProjectListTreeModel::isSectionHeader(const QModelIndex &index) const { return rowAt(index).isHeader; }

bool ProjectListTreeModel::isInbox(const QModelIndex &index) const
{
    const Row &row = rowAt(index);
    return row.node && row.node->type() == Type::project && row.parent == m_rootRow.get();
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
    return indexOf(*rowAt(parent).children[std::size_t(row)]);
}

QModelIndex ProjectListTreeModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOf(*rowAt(child).parent) : QModelIndex{};
}

int ProjectListTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : int(rowAt(parent).children.size());
}

void ProjectListTreeModel::setCountOf(CountOf countOf) { m_countOf = std::move(countOf); }

int ProjectListTreeModel::countOf(const QModelIndex &index) const
{
    const KWProjectListNode *node = nodeAt(index);
    return m_countOf && node ? m_countOf(*node).value_or(0) : 0;
}

QString ProjectListTreeModel::spokenText(const QModelIndex &index) const
{
    const QString &title = rowAt(index).title;
    const int count = countOf(index);
    return count == 0 ? title : title + QStringLiteral(", ") + countInWords(*nodeAt(index), count);
}

QVariant ProjectListTreeModel::data(const QModelIndex &index, int role) const
{
    const Row &row = rowAt(index);
    if (!index.isValid() || row.isSpacer) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.title;
    case Qt::AccessibleTextRole:
        return spokenText(index);
    default:
        return {};
    }
}

Qt::ItemFlags ProjectListTreeModel::flags(const QModelIndex &index) const
{
    const KWProjectListNode *node = nodeAt(index);
    if (!node) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    switch (node->type()) {
    case Type::divider:
    case Type::emptyHolder:
    case Type::none:
        return Qt::NoItemFlags;
    case Type::archived:
    case Type::team:
    case Type::team_personal:
        return flags;
    default:
        break;
    }
    if (!isSectionHeader(index)) flags |= Qt::ItemIsSelectable;
    if (canBeNamed(node->type()) && !isInbox(index)) flags |= Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
    if (node->type() == Type::filter) flags |= Qt::ItemIsDragEnabled;
    return flags;
}
