#include "lists/KWProjectListDataService.h"

#include "corvexkit/log/CXLog.h"
#include "lists/ProjectListNodes.h"
#include "model/records/KWSmartProject.h"
#include "model/store/KWCoreDataManager.h"

#include <algorithm>

namespace {

using Node = KWProjectListNode;
using Type = KWProjectListNodeType;
using ProjectListNodes::Nodes;

constexpr CXLogger sidebarLog{u"sidebar"};

void visit(Node &node, const std::function<void(Node &)> &visitor)
{
    for (const auto &each : node.children()) {
        visitor(*each);
        visit(*each, visitor);
    }
}

// Behind the last one of its kind, but before the closed lists.
void addUnnamed(Node &parent, Type type)
{
    Nodes nodes = parent.takeChildren();
    std::erase_if(nodes, [](const auto &each) { return each->type() == Type::emptyHolder; });
    const auto archive =
        std::ranges::find(nodes, Type::archived, [](const auto &each) { return each->type(); });
    nodes.insert(archive, ProjectListNodes::unnamed(type));
    parent.setChildren(std::move(nodes));
}

} // namespace

/// The sections that are being read, and what was read of them.
struct KWProjectListDataService::Group {
    std::set<ProjectListSection> sections;
    std::size_t sectionsLeft = 0;
    ProjectListContents read;
    std::set<ProjectListSection> sectionsRead;
};

KWProjectListDataService::KWProjectListDataService(KWCoreDataManager &manager)
    : m_manager(manager), m_rootNode(Type::none, {}, {})
{
    const auto part = [this] {
        return &m_rootNode.addChild(std::make_unique<Node>(Type::none, QString{}, QString{}));
    };
    m_topNode = part();
    m_centerNode = part();
    m_bottomNode = part();
    const auto section = [this](const KWSmartProject &smart) {
        return &m_centerNode->addChild(ProjectListNodes::smartNode(smart));
    };
    m_listNode = section(KWSmartProject::project());
    m_tagNode = section(KWSmartProject::tag());
    m_filterNode = section(KWSmartProject::filter());
    m_subCalNode = section(KWSmartProject::subcal());
}

void KWProjectListDataService::rebuild(const QString &userID, std::span<const ProjectListSection> sections)
{
    if (m_contents && m_contents->userID != userID) clear();
    const auto group = std::make_shared<Group>();
    group->sections.insert(sections.begin(), sections.end());
    // What another rebuild has begun to read may be older than what this one is for.
    if (m_group) group->sections.merge(m_group->sections);
    group->sectionsLeft = group->sections.size();
    group->read.userID = userID;
    m_group = group;
    for (const ProjectListSection each : group->sections)
        readInBackground(each);
}

void KWProjectListDataService::readInBackground(ProjectListSection section)
{
    auto contents = std::make_shared<ProjectListContents>();
    contents->userID = m_group->read.userID;
    const auto read = [contents, section](ObjectContext &context) -> Result<void> {
        contents->readSection(section, context);
        return {};
    };
    // The group goes with the service, and when another rebuild takes its place.
    const auto leave = [this, contents, section, life = std::weak_ptr{m_group}](const Result<void> &done) {
        const std::shared_ptr<Group> group = life.lock();
        if (!group) return;
        if (done) {
            group->read.takeSection(section, *contents);
            group->sectionsRead.insert(section);
        } else {
            sidebarLog.error(done.error().sentence);
        }
        if (--group->sectionsLeft == 0) takeAll(group->sectionsRead, group->read);
    };
    KWCoreDataService{m_manager}.async_perform(read, leave);
}

void KWProjectListDataService::rebuildNow(const QString &userID)
{
    if (m_contents && m_contents->userID != userID) clear();
    takeAll({allProjectListSections.begin(), allProjectListSections.end()},
            ProjectListContents::read(userID, m_manager.MR_defaultContext()));
}

void KWProjectListDataService::takeAll(const std::set<ProjectListSection> &sections,
                                       const ProjectListContents &read)
{
    m_group.reset();
    bool isAnother = false;
    for (const ProjectListSection each : sections)
        isAnother |= take(each, read);
    if (isAnother) onReplaced();
}

bool KWProjectListDataService::take(ProjectListSection section, const ProjectListContents &read)
{
    if (!m_contents) m_contents.emplace().userID = read.userID;
    const bool isFirst = m_sectionsRead.insert(section).second;
    if (!m_contents->takeSection(section, read) && !isFirst) return false;
    replace(section);
    if (section == ProjectListSection::SmartLists) replaceHideable();
    return true;
}

// The visibility of these sections is a setting of smart lists.
void KWProjectListDataService::replaceHideable()
{
    for (const ProjectListSection each : {ProjectListSection::Tags, ProjectListSection::Filters})
        if (m_sectionsRead.contains(each)) replace(each);
}

void KWProjectListDataService::replace(ProjectListSection section)
{
    const ProjectListContents shown = shownContents();
    switch (section) {
    case ProjectListSection::SmartLists:
        m_shownWithout = shown.hiddenSmartLists;
        setChildren(*m_topNode, ProjectListNodes::top(shown));
        setChildren(*m_bottomNode, ProjectListNodes::bottom(shown));
        break;
    case ProjectListSection::Filters:
        setChildren(*m_filterNode, ProjectListNodes::filters(shown));
        break;
    case ProjectListSection::Tags:
        setChildren(*m_tagNode, ProjectListNodes::tags(shown));
        break;
    case ProjectListSection::Subscriptions:
        setChildren(*m_subCalNode, ProjectListNodes::subscriptions(shown));
        break;
    case ProjectListSection::Lists:
        setChildren(*m_topNode, ProjectListNodes::top(shown)); // the inbox is one
        setChildren(*m_listNode, ProjectListNodes::lists(shown));
        break;
    }
}

void KWProjectListDataService::setChildren(Node &section, Nodes children)
{
    section.setChildren(std::move(children));
    if (m_unnamedNode.type != Type::none) showUnnamedNode(section);
    section.setIsExpanded(!isFolded(section));
    visit(section, [this](Node &node) { node.setIsExpanded(!isFolded(node)); });
}

void KWProjectListDataService::showUnnamedNode(Node &section)
{
    const auto isParent = [this](const Node &node) {
        return node.type() == m_unnamedNode.parentType && node.entityID() == m_unnamedNode.parentID;
    };
    Node *parent = isParent(section) ? &section : nullptr;
    visit(section, [&](Node &node) {
        if (isParent(node)) parent = &node;
    });
    if (parent) addUnnamed(*parent, m_unnamedNode.type);
}

ProjectListContents KWProjectListDataService::shownContents() const
{
    ProjectListContents shown = *m_contents;
    for (const QString &each : m_contents->hiddenIfEmpty) {
        const KWSmartProject &smart = *KWSmartProject::withIdentifier(each);
        const bool hasNothing =
            smart.identifier() == KWSmartProject::tag().identifier()      ? shown.tags.isEmpty()
            : smart.identifier() == KWSmartProject::filter().identifier() ? shown.filters.isEmpty()
                                                                          : isEmpty(smart);
        if (hasNothing) shown.hiddenSmartLists.insert(each);
    }
    return shown;
}

void KWProjectListDataService::refreshSmartLists()
{
    if (!m_contents || m_contents->hiddenIfEmpty.isEmpty()) return;
    if (shownContents().hiddenSmartLists == m_shownWithout) return;
    replace(ProjectListSection::SmartLists);
    onReplaced();
}

void KWProjectListDataService::setUnnamedNode(KWProjectListNodeType type, const KWProjectListNode *parent)
{
    m_unnamedNode = {type, parent ? parent->type() : Type::none, parent ? parent->entityID() : QString{}};
    if (!m_contents) return;
    replace(ProjectListSection::Lists);
    replace(ProjectListSection::Tags);
    onReplaced();
}

void KWProjectListDataService::clear()
{
    m_group.reset();
    m_contents.reset();
    m_sectionsRead.clear();
    m_unnamedNode = {};
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
