#include "views/sidebar/SidebarDropTarget.h"

#include "views/sidebar/ProjectListTreeModel.h"
#include "views/tasklist/TaskMimeData.h"

#include <QMimeData>

namespace {

constexpr int lineHeight = 2;

/// A place to try: on the node, or before a child of it.
struct Proposal {
    KWProjectListNode *parent;
    int childIndex;
    QRect mark;
};

QRect lineAt(int y, const QRect &row) { return {row.left(), y - lineHeight / 2, row.width(), lineHeight}; }

// The nearest first: between rows close to an edge of one, on it in the middle.
QList<Proposal> proposals(const QPoint &position, const QModelIndex &index, const QRect &row, bool isExpanded,
                          const ProjectListTreeModel &model)
{
    KWProjectListNode *node = model.nodeAt(index);
    const Proposal on{node, SidebarDrop::onNode, row};
    const Proposal before{model.nodeAt(index.parent()), index.row(), lineAt(row.top(), row)};
    const bool showsChildren = isExpanded && model.rowCount(index) > 0;
    const Proposal behind = showsChildren ? Proposal{node, 0, lineAt(row.bottom() + 1, row)}
                                          : Proposal{model.nodeAt(index.parent()), index.row() + 1,
                                                     lineAt(row.bottom() + 1, row)};
    const int above = position.y() - row.top();
    const int edge = row.height() / 4;
    if (above < edge) return {before, on, behind};
    if (above >= row.height() - edge) return {behind, on, before};
    return {on, above * 2 < row.height() ? before : behind};
}

} // namespace

QMimeData *SidebarMimeData::writeItems(const KWProjectListNode &node)
{
    auto *data = new QMimeData;
    data->setData(type, (QString::number(int(node.type())) + u':' + node.entityID()).toUtf8());
    return data;
}

KWProjectListNode *SidebarMimeData::nodeIn(const QMimeData &data, const ProjectListTreeModel &model)
{
    const QString key = QString::fromUtf8(data.data(type));
    const qsizetype colon = key.indexOf(u':');
    if (colon < 0) return nullptr;
    return model.nodeAt(model.find(KWProjectListNodeType(key.left(colon).toInt()), key.mid(colon + 1)));
}

std::optional<SidebarDropTarget> SidebarDropTarget::at(const QPoint &position, const QModelIndex &index,
                                                       const QRect &row, bool isExpanded,
                                                       const QMimeData &data,
                                                       const ProjectListTreeModel &model)
{
    KWProjectListNode *under = model.nodeAt(index);
    if (!under) return std::nullopt;
    if (data.hasFormat(TaskMimeData::type)) {
        const bool isTaken = SidebarDrop::validateTaskDrop(*under) != SidebarDrop::TaskDrop::None;
        return isTaken ? std::optional{SidebarDropTarget{row, under}} : std::nullopt;
    }
    const KWProjectListNode *dragged = SidebarMimeData::nodeIn(data, model);
    if (!dragged) return std::nullopt;
    for (const Proposal &each : proposals(position, index, row, isExpanded, model)) {
        if (!each.parent) continue;
        const auto place = SidebarDrop::validateDrop(*dragged, *each.parent, each.childIndex);
        const bool isOn = each.childIndex == SidebarDrop::onNode;
        if (place) return SidebarDropTarget{each.mark, isOn ? each.parent : nullptr, place};
    }
    return std::nullopt;
}
