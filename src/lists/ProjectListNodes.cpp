#include "lists/ProjectListNodes.h"

#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Node = KWProjectListNode;
using Type = KWProjectListNodeType;
using ProjectListNodes::Nodes;

std::unique_ptr<Node> make(Type type, const QString &entityID, const QString &title,
                           const QString &color = {})
{
    auto node = std::make_unique<Node>(type, entityID, title);
    node->setColor(color);
    return node;
}

std::unique_ptr<Node> projectNode(const KWProjectModel &project, const ProjectListContents &contents)
{
    const QString title = project.isInbox ? KWSmartProject::inbox().displayName() : project.name;
    auto node = make(Type::project, project.sid, title, project.color);
    node->setIconName(contents.iconNames.value(project.sid));
    node->setTakesTasks(!project.closed && project.permission == KWProjectPermissionWrite);
    return node;
}

std::unique_ptr<Node> tagNode(const KWTagModel &tag)
{
    return make(Type::tag, tag.name, tag.label, tag.color);
}

void addShown(std::initializer_list<const KWSmartProject *> smartLists, const ProjectListContents &contents,
              Nodes &nodes)
{
    for (const KWSmartProject *each : smartLists)
        if (contents.shows(each->identifier())) nodes.push_back(ProjectListNodes::smartNode(*each));
}

// So that the section can be seen, and something dropped or made there.
void holdEmpty(Nodes &nodes, const KWSmartProject &section, const char *text)
{
    if (nodes.empty())
        nodes.push_back(make(Type::emptyHolder, section.identifier(), KWLocalizedString(text)));
}

// Folders and the lists in no folder share one order.
Nodes personalNodes(const ProjectListContents &contents, const QHash<QString, Node *> &teams)
{
    std::vector<std::pair<std::int64_t, std::unique_ptr<Node>>> ordered;
    QHash<QString, Node *> folders;
    for (const KWProjectGroupModel &group : contents.groups) {
        auto folder = make(Type::group, group.sid, group.name);
        folders.insert(group.sid, folder.get());
        ordered.emplace_back(group.sortOrder, std::move(folder));
    }
    for (const KWProjectModel &project : contents.projects) {
        if (project.isInbox || teams.contains(project.teamID)) continue;
        if (Node *folder = folders.value(project.groupID))
            folder->addChild(projectNode(project, contents));
        else
            ordered.emplace_back(project.sortOrder, projectNode(project, contents));
    }
    std::ranges::stable_sort(ordered, {}, [](const auto &each) { return each.first; });
    Nodes nodes;
    nodes.reserve(ordered.size());
    for (auto &[order, node] : ordered)
        nodes.push_back(std::move(node));
    return nodes;
}

} // namespace

std::unique_ptr<Node> ProjectListNodes::smartNode(const KWSmartProject &smart)
{
    return make(Type::smartProject, smart.identifier(), smart.displayName());
}

std::unique_ptr<Node> ProjectListNodes::unnamed(KWProjectListNodeType type) { return make(type, {}, {}); }

Nodes ProjectListNodes::top(const ProjectListContents &contents)
{
    Nodes nodes;
    for (const KWProjectModel &each : contents.projects)
        if (each.isInbox) nodes.push_back(projectNode(each, contents));
    addShown({&KWSmartProject::all(), &KWSmartProject::today(), &KWSmartProject::tomorrow(),
              &KWSmartProject::next7days()},
             contents, nodes);
    nodes.push_back(smartNode(KWSmartProject::calendar()));
    addShown({&KWSmartProject::focus(), &KWSmartProject::habit(), &KWSmartProject::assignedToMe()}, contents,
             nodes);
    return nodes;
}

Nodes ProjectListNodes::bottom(const ProjectListContents &contents)
{
    Nodes nodes;
    addShown({&KWSmartProject::completed(), &KWSmartProject::abandoned(), &KWSmartProject::trash(),
              &KWSmartProject::summary()},
             contents, nodes);
    return nodes;
}

Nodes ProjectListNodes::lists(const ProjectListContents &contents)
{
    Nodes nodes;
    QHash<QString, Node *> teams;
    for (const KWTeamModel &each : contents.teams) {
        nodes.push_back(make(Type::team, each.sid, each.name));
        teams.insert(each.sid, nodes.back().get());
    }
    for (const KWProjectModel &each : contents.projects)
        if (Node *team = teams.value(each.teamID)) team->addChild(projectNode(each, contents));

    Nodes personal = personalNodes(contents, teams);
    if (!contents.teams.isEmpty()) {
        nodes.push_back(make(Type::team_personal, u"personal"_s, KWLocalizedString("Personal")));
        nodes.back()->setChildren(std::move(personal));
    } else {
        nodes = std::move(personal);
    }
    if (!contents.closedProjects.isEmpty()) {
        auto archive = make(Type::archived, u"archive"_s, KWLocalizedString("Archive"));
        for (const KWProjectModel &each : contents.closedProjects)
            archive->addChild(projectNode(each, contents));
        nodes.push_back(std::move(archive));
    }
    holdEmpty(nodes, KWSmartProject::project(), "No lists yet");
    return nodes;
}

Nodes ProjectListNodes::tags(const ProjectListContents &contents)
{
    Nodes nodes;
    if (!contents.shows(KWSmartProject::tag().identifier())) return nodes;
    QHash<QString, Node *> parents;
    nodes.reserve(std::size_t(contents.tags.size()));
    for (const KWTagModel &each : contents.tags)
        if (each.parent.isEmpty()) {
            nodes.push_back(tagNode(each));
            parents.insert(each.name, nodes.back().get());
        }
    for (const KWTagModel &each : contents.tags) {
        if (each.parent.isEmpty()) continue;
        if (Node *parent = parents.value(each.parent))
            parent->addChild(tagNode(each));
        else
            nodes.push_back(tagNode(each));
    }
    holdEmpty(nodes, KWSmartProject::tag(), "No tags yet");
    return nodes;
}

Nodes ProjectListNodes::filters(const ProjectListContents &contents)
{
    Nodes nodes;
    if (!contents.shows(KWSmartProject::filter().identifier())) return nodes;
    for (const KWFilterModel &each : contents.filters)
        nodes.push_back(make(Type::filter, each.sid, each.name));
    holdEmpty(nodes, KWSmartProject::filter(), "No filters yet");
    return nodes;
}

Nodes ProjectListNodes::subscriptions(const ProjectListContents &contents)
{
    Nodes nodes;
    if (!contents.hasSubscriptions) return nodes;
    for (const KWCalSubscriptionModel &each : contents.calendars)
        nodes.push_back(make(Type::calsub_url, each.sid, each.name, each.color));
    return nodes;
}
