#pragma once

#include "lists/KWProjectListDataService.h"
#include "model/account/KWAccountManager.h"
#include "model/events/KWEventBus.h"
#include "model/store/KWProjectListCountFetcher.h"

#include <functional>

class KWUserDefaults;

/// Keeps the sidebar tree true: rebuilds it when lists, folders or tags change, recounts when tasks or
/// the day do, and remembers what is selected and folded. Main thread.
class KWProjectListPresenter {
public:
    KWProjectListPresenter(KWCoreDataManager &manager, KWAccountManager &account,
                           KWProjectListCountFetcher &counts, KWUserDefaults &defaults,
                           KWNotificationCenter &center, KWEventBus &bus);

    KWProjectListDataService &dataService() { return m_dataService; }
    /// What the tree was built from; nothing while it is empty.
    const std::optional<ProjectListContents> &contents() const { return m_contents; }
    KWProjectListNode &listsRootNode() { return m_dataService.rootNode(); }

    /// Builds the tree of the signed-in user and selects the stored node, or Today when it is gone. Counts
    /// are left to recount(): a window asks for them once it is painted.
    void build();
    /// Builds and counts again.
    void reload();
    /// Empties the tree, at sign-out.
    void clear();

    const KWListIdentifier &selectedList() const { return m_selectedList; }
    KWProjectListNode *selectedNode() { return m_dataService.nodeFor(m_selectedList); }
    /// What the head of the list says.
    QString titleOfSelectedList();
    /// Selects and remembers it. A list that has no node is not selected, unless it is a smart list of
    /// tasks: one that the sidebar does not show can be opened all the same.
    void select(const KWListIdentifier &list);

    void setIsExpanded(bool isExpanded, KWProjectListNode &node);

    std::optional<int> countOf(const KWProjectListNode &node) const;
    void recount();

    // Told to the view.
    std::function<void()> onTreeRebuilt;
    std::function<void()> onCountsChanged;
    std::function<void(const KWListIdentifier &)> onSelectionChanged;

private:
    void rebuildIfChanged();
    void restoreSelection();
    bool canShow(const KWListIdentifier &list);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWProjectListCountFetcher &m_counts;
    KWUserDefaults &m_defaults;
    KWProjectListDataService m_dataService;
    std::optional<ProjectListContents> m_contents;
    QStringList m_foldedNodes;
    KWListIdentifier m_selectedList = KWListIdentifier::todayProject();
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
