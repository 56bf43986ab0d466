#include "views/sidebar/SidebarController.h"

#include "views/sidebar/AccountHeader.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"

SidebarController::SidebarController(SidebarView &view, KWProjectListPresenter &presenter,
                                     KWAccountManager &account)
    : m_view(view), m_presenter(presenter), m_account(account)
{
    KWProjectListView &tree = m_view.tree();
    tree.setCountOf([this](const KWProjectListNode &node) { return m_presenter.countOf(node); });
    m_presenter.onTreeRebuilt = [this] { showTree(); };
    m_presenter.onSelectionChanged = [this](const KWListIdentifier &list) {
        showSelection();
        Q_EMIT listSelected(list);
    };
    m_presenter.onContentsChanged = [this] { Q_EMIT contentsChanged(); };
    connect(&tree, &KWProjectListView::nodeSelected, this,
            [this](const KWProjectListNode *node) { m_presenter.projectListNodeSelectionChanged(*node); });
    connect(
        &tree, &KWProjectListView::expansionChanged, this,
        [this](KWProjectListNode *node, bool isExpanded) { m_presenter.setIsExpanded(isExpanded, *node); });
    connect(&tree, &KWProjectListView::opened, this, &SidebarController::listOpened);
}

SidebarController::~SidebarController()
{
    m_view.tree().setRoot(nullptr);
    m_presenter.onTreeRebuilt = {};
    m_presenter.onSelectionChanged = {};
    m_presenter.onContentsChanged = {};
}

void SidebarController::showTree()
{
    const auto &user = m_account.currentUser();
    const QString name = user ? user->name : QString{};
    m_view.header().setAccountName(name.isEmpty() ? tr("My tasks") : name);
    m_view.tree().setRoot(&m_presenter.listsRootNode());
    showSelection();
}

void SidebarController::showSelection()
{
    if (const KWProjectListNode *node = m_presenter.selectedNode())
        m_view.tree().selectNode(node->type(), node->entityID());
    else
        m_view.tree().selectNothing();
}
