#include "lists/KWProjectListDataService.h"

#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"

namespace {

using Node = KWProjectListNode;
using Nodes = std::vector<std::unique_ptr<Node>>;

std::unique_ptr<Node> smartNode(const KWSmartProject &smart)
{
    return std::make_unique<Node>(KWProjectListNodeType::smartProject, smart.identifier(),
                                  smart.displayName());
}

std::unique_ptr<Node> projectNode(const KWProjectModel &project)
{
    const QString title = project.isInbox ? KWSmartProject::inbox().displayName() : project.name;
    auto node = std::make_unique<Node>(KWProjectListNodeType::project, project.sid, title);
    node->setColor(project.color);
    return node;
}

std::unique_ptr<Node> tagNodeFor(const KWTagModel &tag)
{
    auto node = std::make_unique<Node>(KWProjectListNodeType::tag, tag.name, tag.label);
    node->setColor(tag.color);
    return node;
}

void addShown(std::initializer_list<const KWSmartProject *> smartLists, const ProjectListContents &contents,
              Nodes &nodes)
{
    for (const KWSmartProject *each : smartLists)
        if (!contents.hiddenSmartLists.contains(each->identifier())) nodes.push_back(smartNode(*each));
}

Nodes topNodes(const ProjectListContents &contents)
{
    Nodes nodes;
    for (const KWProjectModel &each : contents.projects)
        if (each.isInbox) nodes.push_back(projectNode(each));
    addShown({&KWSmartProject::all(), &KWSmartProject::today(), &KWSmartProject::tomorrow(),
              &KWSmartProject::next7days(), &KWSmartProject::assignedToMe()},
             contents, nodes);
    return nodes;
}

Nodes bottomNodes(const ProjectListContents &contents)
{
    Nodes nodes;
    addShown({&KWSmartProject::completed(), &KWSmartProject::abandoned(), &KWSmartProject::trash()}, contents,
             nodes);
    return nodes;
}

// Folders and the lists in no folder share one order.
Nodes listNodes(const ProjectListContents &contents)
{
    std::vector<std::pair<std::int64_t, std::unique_ptr<Node>>> ordered;
    QHash<QString, Node *> folders;
    for (const KWProjectGroupModel &group : contents.groups) {
        auto folder = std::make_unique<Node>(KWProjectListNodeType::group, group.sid, group.name);
        folders.insert(group.sid, folder.get());
        ordered.emplace_back(group.sortOrder, std::move(folder));
    }
    for (const KWProjectModel &project : contents.projects) {
        if (project.isInbox) continue;
        if (Node *folder = folders.value(project.groupID))
            folder->addChild(projectNode(project));
        else
            ordered.emplace_back(project.sortOrder, projectNode(project));
    }
    std::ranges::stable_sort(ordered, {}, [](const auto &each) { return each.first; });
    Nodes nodes;
    for (auto &[order, node] : ordered)
        nodes.push_back(std::move(node));
    return nodes;
}

// A tag whose parent is missing stands on its own.
Nodes tagNodes(const ProjectListContents &contents)
{
    QHash<QString, std::unique_ptr<Node> *> parents;
    Nodes nodes;
    nodes.reserve(std::size_t(contents.tags.size()));
    for (const KWTagModel &each : contents.tags)
        if (each.parent.isEmpty()) {
            nodes.push_back(tagNodeFor(each));
            parents.insert(each.name, &nodes.back());
        }
    for (const KWTagModel &each : contents.tags) {
        if (each.parent.isEmpty()) continue;
        if (const auto *parent = parents.value(each.parent))
            (*parent)->addChild(tagNodeFor(each));
        else
            nodes.push_back(tagNodeFor(each));
    }
    return nodes;
}

void visit(Node &node, const std::function<void(Node &)> &visitor)
{
    for (const auto &each : node.children()) {
        visitor(*each);
        visit(*each, visitor);
    }
}

} // namespace

ProjectListContents ProjectListContents::read(const QString &userID, ObjectContext &context)
{
    ProjectListContents contents;
    contents.userID = userID;
    for (const KWProject *each : KWProject::findProjectsOfUser(userID, ProjectScope::Open, context))
        contents.projects.append(each->model());
    for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(userID, context))
        contents.groups.append(each->model());
    for (const KWTag *each : KWTag::findTagsOfUser(userID, context))
        contents.tags.append(each->model());
    const auto visibilities = KWSmartProject::visibilities(userID, context);
    for (auto each = visibilities.begin(); each != visibilities.end(); ++each)
        if (each.value() == KWSmartProjectVisibilityHidden)
            contents.hiddenSmartLists.insert(each.key());
        else if (each.value() == KWSmartProjectVisibilityShownIfNotEmpty)
            contents.hiddenIfEmpty.insert(each.key());
    return contents;
}

KWProjectListDataService::KWProjectListDataService() : m_rootNode(KWProjectListNodeType::none, {}, {})
{
    const auto section = [](KWProjectListNode &parent) {
        return &parent.addChild(std::make_unique<Node>(KWProjectListNodeType::none, QString{}, QString{}));
    };
    m_topNode = section(m_rootNode);
    m_centerNode = section(m_rootNode);
    m_bottomNode = section(m_rootNode);
    m_listNode = &m_centerNode->addChild(smartNode(KWSmartProject::project()));
    m_tagNode = &m_centerNode->addChild(smartNode(KWSmartProject::tag()));
    m_filterNode = &m_centerNode->addChild(smartNode(KWSmartProject::filter()));
    m_subCalNode = &m_centerNode->addChild(smartNode(KWSmartProject::subcal()));
}

void KWProjectListDataService::rebuild(const ProjectListContents &contents,
                                       const std::function<bool(const KWProjectListNode &)> &isFolded)
{
    m_topNode->setChildren(topNodes(contents));
    m_listNode->setChildren(listNodes(contents));
    const bool showsTags = !contents.hiddenSmartLists.contains(KWSmartProject::tag().identifier());
    m_tagNode->setChildren(showsTags ? tagNodes(contents) : Nodes{});
    m_bottomNode->setChildren(bottomNodes(contents));
    visit(m_rootNode, [&isFolded](Node &node) { node.setIsExpanded(!isFolded(node)); });
}

void KWProjectListDataService::clear()
{
    for (Node *each : {m_topNode, m_filterNode, m_tagNode, m_listNode, m_subCalNode, m_bottomNode})
        each->setChildren({});
}

KWProjectListNode *KWProjectListDataService::nodeFor(const KWListIdentifier &list)
{
    Node *found = nullptr;
    for (Node *each : {m_topNode, m_listNode, m_tagNode, m_filterNode, m_subCalNode, m_bottomNode})
        visit(*each, [&](Node &node) {
            if (!found && node.listIdentifier() == list) found = &node;
        });
    return found;
}

QList<KWListIdentifier> KWProjectListDataService::lists() const
{
    QList<KWListIdentifier> lists;
    for (Node *each : {m_topNode, m_listNode, m_tagNode, m_filterNode, m_bottomNode})
        visit(*each, [&](Node &node) {
            if (const auto list = node.listIdentifier()) lists.append(*list);
        });
    return lists;
}
