#pragma once

#include "lists/KWProjectListDataService.h"
#include "lists/ProjectListMenu.h"
#include "model/account/KWAccountManager.h"
#include "model/events/KWEventBus.h"
#include "model/store/KWProjectListCountFetcher.h"

#include <functional>
#include <span>

class KWUserDefaults;

/// Keeps the sidebar tree true: rebuilds it when lists, folders, tags or filters change, recounts when
/// tasks or the day do, and remembers what is selected and folded. What is saved in this program shows at
/// once; what comes from elsewhere is read in the background. Main thread.
class KWProjectListPresenter {
public:
    KWProjectListPresenter(KWCoreDataManager &manager, KWAccountManager &account,
                           KWProjectListCountFetcher &counts, KWUserDefaults &defaults,
                           KWNotificationCenter &center, KWEventBus &bus);

    const CXClock &clock() const { return m_manager.store().clock(); }
    KWProjectListDataService &dataService() { return m_dataService; }
    /// What the tree was built from; nothing while it is empty.
    const std::optional<ProjectListContents> &contents() const { return m_dataService.contents(); }
    KWProjectListNode &listsRootNode() { return m_dataService.rootNode(); }

    /// Builds the tree of the signed-in user at once and selects the stored node, or the default one when
    /// that is gone. Counts are left to recount(): a window asks for them once it is painted.
    void build();
    /// The same in the background, and counts again.
    void reload();
    /// Empties the tree, at sign-out.
    void clear();

    const KWListIdentifier &selectedList() const { return m_selectedList; }
    KWProjectListNode *selectedNode() { return m_dataService.nodeFor(m_selectedList); }
    /// What the head of the list says.
    QString titleOfSelectedList();
    /// An archived list takes no new tasks.
    bool isSelectedListClosed();
    /// It is closed, or belongs to somebody else and may only be read.
    bool isSelectedListReadOnly();
    /// Selects and remembers it. A list that has no node is not selected, unless it is a smart list of
    /// tasks: one that the sidebar does not show can be opened all the same.
    void select(const KWListIdentifier &list);
    /// Today; where it is hidden the first list of the sidebar.
    KWListIdentifier defaultList() const;
    /// A row was selected by hand.
    void projectListNodeSelectionChanged(const KWProjectListNode &node);
    /// Whether the above is acted on: not while the view takes over a tree.
    bool observerNodeSelectionNotification() const { return m_observerNodeSelectionNotification; }

    void setIsExpanded(bool isExpanded, KWProjectListNode &node);

    /// What is made in place: a node without a name stands for it until that is typed.
    struct NewNode {
        KWProjectListNodeType type = KWProjectListNodeType::none; ///< a list, a folder or a tag
        KWProjectKind kind = KWProjectKindTask;                   ///< of a list
        QString parentID{}; ///< the folder of a list, the parent of a tag; empty for none
    };
    void beginAdding(NewNode node);
    void endAdding();
    const std::optional<NewNode> &adding() const { return m_adding; }
    /// The tag among them, without a name.
    std::optional<KWTagModel> addingTag() const;

    /// The list that the node shows, closed or not; nothing for other nodes.
    std::optional<KWProjectModel> listOf(const KWProjectListNode &node) const;
    /// The subscribed calendar that the node stands for; nothing for other nodes.
    std::optional<KWCalSubscriptionModel> calendarOf(const KWProjectListNode &node) const;
    /// That of the selected node.
    std::optional<KWCalSubscriptionModel> selectedCalendar();
    bool isShownInCalendar(const KWProjectListNode &calendar) const;
    QList<ProjectListCommand> popMenu(const KWProjectListNode &node) const;
    /// A smart list or section that comes and goes with what it holds.
    bool isShownIfNotEmpty(const KWProjectListNode &node) const;

    std::optional<int> countOf(const KWProjectListNode &node) const;
    void recount(SidebarCountKinds kinds = allSidebarCounts);

    // Told to the view, which clears them when it goes.
    std::function<void()> onTreeRebuilt;
    std::function<void(const KWListIdentifier &)> onSelectionChanged;
    /// Lists, tags or filters are other ones now; the same list is selected.
    std::function<void()> onContentsChanged;

private:
    void observe(KWNotificationCenter &center);
    void refresh(std::span<const ProjectListSection> sections);
    void refresh(ProjectListSection section) { refresh(std::span{&section, 1}); }

    // What the notifications do.
    void smartListVisibilityDidChange() { refresh(allProjectListSections); }
    void sidebarSortorderChanged() { refresh(allProjectListSections); }
    void dataDidChangeOutsideMainApp() { refresh(allProjectListSections); }
    void teamDidPull() { refresh(ProjectListSection::Lists); }
    void singleProjectSyncFinished() { refresh(ProjectListSection::Lists); }
    void calSubDisplayStatusChanged() { refresh(ProjectListSection::Subscriptions); }
    void calSubscriptionAvaliableChanged() { refresh(ProjectListSection::Subscriptions); }
    void habitSettingsDidChange() { refresh(ProjectListSection::SmartLists); }
    void syncDidBatchPull(const KWNotification &pull);
    void itemsCountDidChange();
    void showCounts(KWProjectListNode &node);

    void didReplace();
    void restoreSelection();
    bool canShow(const KWListIdentifier &list);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWProjectListCountFetcher &m_counts;
    KWUserDefaults &m_defaults;
    KWProjectListDataService m_dataService;
    QStringList m_foldedNodes; // keys of the nodes that are not as they come: folded, or unfolded
    KWListIdentifier m_selectedList = KWListIdentifier::todayProject();
    bool m_observerNodeSelectionNotification = true;
    std::optional<NewNode> m_adding;
    std::optional<ProjectListContents> m_announced; // with the selection of then
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
