#include "lists/KWProjectListNode.h"

#include <algorithm>

KWProjectListNode::KWProjectListNode(KWProjectListNodeType type, QString entityID, QString title)
    : m_type(type), m_entityID(std::move(entityID)), m_title(std::move(title))
{
}

void KWProjectListNode::setCount(std::optional<int> count)
{
    if (std::exchange(m_count, count) == count) return;
    if (countChangedHandler) countChangedHandler(count.value_or(0), *this);
}

void KWProjectListNode::setIsExpanded(bool isExpanded)
{
    if (m_isExpanded == isExpanded) return;
    if (expanedChangedHandler && !expanedChangedHandler(isExpanded, *this)) return;
    m_isExpanded = isExpanded;
}

void KWProjectListNode::setIsSelected(bool isSelected)
{
    if (m_isSelected == isSelected) return;
    m_isSelected = isSelected;
    if (selectChangedHanlder) selectChangedHanlder();
}

int KWProjectListNode::row() const
{
    if (!m_parent) return 0;
    const auto &siblings = m_parent->m_children;
    const auto found = std::ranges::find(siblings, this, [](const auto &each) { return each.get(); });
    return int(found - siblings.begin());
}

void KWProjectListNode::setChildren(std::vector<std::unique_ptr<KWProjectListNode>> children)
{
    m_children = std::move(children);
    for (const auto &each : m_children)
        each->m_parent = this;
}

KWProjectListNode &KWProjectListNode::addChild(std::unique_ptr<KWProjectListNode> child)
{
    child->m_parent = this;
    m_children.push_back(std::move(child));
    return *m_children.back();
}

std::optional<KWListIdentifier> KWProjectListNode::listIdentifier() const
{
    if (m_entityID.isEmpty()) return std::nullopt;
    switch (m_type) {
    case KWProjectListNodeType::smartProject:
        return KWListIdentifier::smartProject(m_entityID);
    case KWProjectListNodeType::project:
        return KWListIdentifier::project(m_entityID);
    case KWProjectListNodeType::group:
        return KWListIdentifier::group(m_entityID);
    case KWProjectListNodeType::tag:
        return KWListIdentifier::tag(m_entityID);
    case KWProjectListNodeType::filter:
        return KWListIdentifier::filter(m_entityID);
    case KWProjectListNodeType::calsub_url:
        return KWListIdentifier::calendar(m_entityID);
    default:
        return std::nullopt;
    }
}
