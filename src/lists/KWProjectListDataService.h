#pragma once

#include "lists/KWProjectListNode.h"
#include "lists/ProjectListContents.h"

#include <set>
#include <span>

class KWCoreDataManager;
class KWSmartProject;

/// Builds the sidebar tree. The section nodes are made once; a rebuild replaces the children of those
/// sections that are others now. Main thread.
class KWProjectListDataService {
public:
    explicit KWProjectListDataService(KWCoreDataManager &manager);

    KWProjectListNode &rootNode() { return m_rootNode; }
    KWProjectListNode &topNode() { return *m_topNode; }
    KWProjectListNode &centerNode() { return *m_centerNode; }
    KWProjectListNode &bottomNode() { return *m_bottomNode; }
    KWProjectListNode &listNode() { return *m_listNode; }
    KWProjectListNode &tagNode() { return *m_tagNode; }
    KWProjectListNode &filterNode() { return *m_filterNode; }
    KWProjectListNode &subCalNode() { return *m_subCalNode; }

    /// Tells which nodes the user has folded.
    std::function<bool(const KWProjectListNode &)> isFolded = [](const KWProjectListNode &) { return false; };
    /// Tells of a smart list that is shown with tasks only whether it has none.
    std::function<bool(const KWSmartProject &)> isEmpty = [](const KWSmartProject &) { return false; };
    /// Called when children of sections were replaced, and the nodes before are gone.
    std::function<void()> onReplaced = [] {};

    /// What the tree was built from; nothing while it is empty.
    const std::optional<ProjectListContents> &contents() const { return m_contents; }

    /// Reads each of the sections in a background context of its own, then replaces those that are others
    /// now, all together. A section that cannot be read stays.
    void rebuild(const QString &userID, std::span<const ProjectListSection> sections);
    /// The same at once, in the main context.
    void rebuildNow(const QString &userID);
    /// Asks again which smart lists are empty.
    void refreshSmartLists();
    /// Shows a node below `parent` (a section, folder or tag) that has no name yet, in place of the one
    /// before; none for `KWProjectListNodeType::none`.
    void setUnnamedNode(KWProjectListNodeType type, const KWProjectListNode *parent = nullptr);
    void clear();

    /// The node that shows the list, or none.
    KWProjectListNode *nodeFor(const KWListIdentifier &list);
    /// Every list that a node of the tree shows.
    QList<KWListIdentifier> lists() const;

private:
    struct Group;
    struct UnnamedNode {
        KWProjectListNodeType type = KWProjectListNodeType::none;
        KWProjectListNodeType parentType = KWProjectListNodeType::none;
        QString parentID;
    };

    void readInBackground(ProjectListSection section);
    void takeAll(const std::set<ProjectListSection> &sections, const ProjectListContents &read);
    bool take(ProjectListSection section, const ProjectListContents &read);
    void replace(ProjectListSection section);
    void replaceHideable();
    void setChildren(KWProjectListNode &section, std::vector<std::unique_ptr<KWProjectListNode>> children);
    void showUnnamedNode(KWProjectListNode &section);
    ProjectListContents shownContents() const;

    KWCoreDataManager &m_manager;
    std::optional<ProjectListContents> m_contents;
    std::set<ProjectListSection> m_sectionsRead;
    QSet<QString> m_shownWithout; // the smart lists left out of the tree
    UnnamedNode m_unnamedNode;
    std::shared_ptr<Group> m_group; // of the rebuild under way
    KWProjectListNode m_rootNode;
    KWProjectListNode *m_topNode;
    KWProjectListNode *m_centerNode;
    KWProjectListNode *m_bottomNode;
    KWProjectListNode *m_listNode;
    KWProjectListNode *m_tagNode;
    KWProjectListNode *m_filterNode;
    KWProjectListNode *m_subCalNode;
};
