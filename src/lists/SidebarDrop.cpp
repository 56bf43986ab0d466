#include "lists/SidebarDrop.h"

#include "model/records/KWSmartProject.h"

#include <algorithm>

namespace {

using Type = KWProjectListNodeType;

bool isSection(const KWProjectListNode &node, const KWSmartProject &smart)
{
    return node.type() == Type::smartProject && node.entityID() == smart.identifier();
}

bool holdsPersonalLists(const KWProjectListNode &node)
{
    return node.type() == Type::team_personal || isSection(node, KWSmartProject::project());
}

bool isClosed(const KWProjectListNode &list)
{
    return list.parent() && list.parent()->type() == Type::archived;
}

bool isInbox(const KWProjectListNode &list) { return list.parent()->type() == Type::none; }

// Lists stand in the section, in folders, or among those of their team.
bool mayHoldList(const KWProjectListNode &list, const KWProjectListNode &parent)
{
    if (isClosed(list) || isInbox(list)) return false;
    if (list.parent()->type() == Type::team) return &parent == list.parent();
    return parent.type() == Type::group || holdsPersonalLists(parent);
}

// Two deep, and not below itself.
bool mayHoldTag(const KWProjectListNode &tag, const KWProjectListNode &parent)
{
    if (isSection(parent, KWSmartProject::tag())) return true;
    return parent.type() == Type::tag && &parent != &tag && tag.children().empty() &&
           parent.parent()->type() != Type::tag;
}

bool mayHold(const KWProjectListNode &dragged, const KWProjectListNode &parent)
{
    if (dragged.entityID().isEmpty() || !dragged.parent()) return false;
    switch (dragged.type()) {
    case Type::project:
        return mayHoldList(dragged, parent);
    case Type::group:
        return holdsPersonalLists(parent);
    case Type::tag:
        return mayHoldTag(dragged, parent);
    case Type::filter:
        return isSection(parent, KWSmartProject::filter());
    case Type::calsub_url:
        return isSection(parent, KWSmartProject::subcal());
    default:
        return false;
    }
}

// Rows that other rows stand before; the archive and what has no name yet are behind them.
bool isOrdered(const KWProjectListNode &node)
{
    return node.type() != Type::archived && node.type() != Type::emptyHolder && !node.entityID().isEmpty();
}

} // namespace

std::optional<SidebarDrop::Place> SidebarDrop::validateDrop(const KWProjectListNode &dragged,
                                                            const KWProjectListNode &parent, int childIndex)
{
    if (!mayHold(dragged, parent)) return std::nullopt;
    std::vector<const KWProjectListNode *> siblings;
    for (const auto &each : parent.children())
        if (isOrdered(*each)) siblings.push_back(each.get());
    const int end = int(siblings.size());
    const int index = childIndex == onNode ? end : std::min(childIndex, end);
    const int own = int(std::ranges::find(siblings, &dragged) - siblings.begin());
    if (own < end && (index == own || index == own + 1)) return std::nullopt;
    const bool isBelowRecord = parent.type() == Type::group || parent.type() == Type::tag;
    return Place{isBelowRecord ? parent.entityID() : QString{},
                 index < end ? siblings[std::size_t(index)]->entityID() : QString{}};
}

std::optional<SidebarDrop::Place> SidebarDrop::placeBeside(const KWProjectListNode &node, int step)
{
    if (!node.parent()) return std::nullopt;
    const int index = node.row() + (step < 0 ? -1 : 2);
    return index < 0 ? std::nullopt : validateDrop(node, *node.parent(), index);
}

SidebarDrop::TaskDrop SidebarDrop::validateTaskDrop(const KWProjectListNode &node)
{
    if (node.entityID().isEmpty()) return TaskDrop::None;
    if (node.type() == Type::project) return node.takesTasks() ? TaskDrop::MoveToList : TaskDrop::None;
    if (node.type() == Type::tag) return TaskDrop::AddTag;
    if (isSection(node, KWSmartProject::today())) return TaskDrop::SetToday;
    if (isSection(node, KWSmartProject::tomorrow())) return TaskDrop::SetTomorrow;
    if (isSection(node, KWSmartProject::completed())) return TaskDrop::Complete;
    if (isSection(node, KWSmartProject::abandoned())) return TaskDrop::Abandon;
    if (isSection(node, KWSmartProject::trash())) return TaskDrop::Delete;
    return TaskDrop::None;
}
