#include "lists/KWProjectListPresenter.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWUserDefaults.h"

namespace {

QString foldingKey(const KWProjectListNode &node)
{
    return QString::number(int(node.type())) + u':' + node.entityID();
}

} // namespace

KWProjectListPresenter::KWProjectListPresenter(KWCoreDataManager &manager, KWAccountManager &account,
                                               KWProjectListCountFetcher &counts, KWUserDefaults &defaults,
                                               KWNotificationCenter &center, KWEventBus &bus)
    : m_manager(manager), m_account(account), m_counts(counts), m_defaults(defaults)
{
    const auto observe = [this, &center](const QString &name, auto action) {
        m_observations.push_back(
            center.addObserver(name, [this, action](const KWNotification &) { (this->*action)(); }));
    };
    observe(KWNewDayComesNotification, &KWProjectListPresenter::recount);
    observe(KWSyncDidBatchPullNotification, &KWProjectListPresenter::reload);
    observe(KWSmartListDisplayStatusDidChangeNotification, &KWProjectListPresenter::build);
    observe(KWDataDidChangeOutsideMainAppNotification, &KWProjectListPresenter::reload);
    m_observations.push_back(center.addObserver(countChanged, [this](const KWNotification &) {
        if (m_contents && !m_contents->hiddenIfEmpty.isEmpty()) rebuildIfChanged();
        if (onCountsChanged) onCountsChanged();
    }));
    m_registration = bus.registerEventBus([this](const StoreChange &change) {
        const bool mayChangeTree = change.touches(RecordKind::Project) ||
                                   change.touches(RecordKind::ProjectGroup) ||
                                   change.touches(RecordKind::Tag);
        if (!m_account.isSignedIn() || !m_contents) return;
        if (mayChangeTree) rebuildIfChanged();
    });
}

void KWProjectListPresenter::rebuildIfChanged()
{
    ProjectListContents contents =
        ProjectListContents::read(m_account.currentUserID(), m_manager.MR_defaultContext());
    for (const QString &each : std::as_const(contents.hiddenIfEmpty))
        if (m_counts.countCached(KWListIdentifier::smartProject(each)).value_or(1) == 0)
            contents.hiddenSmartLists.insert(each);
    if (contents == m_contents) return;
    m_contents = std::move(contents);
    m_dataService.rebuild(*m_contents, [this](const KWProjectListNode &node) {
        return m_foldedNodes.contains(foldingKey(node));
    });
    if (onTreeRebuilt) onTreeRebuilt();
    restoreSelection();
}

void KWProjectListPresenter::build()
{
    if (!m_account.isSignedIn()) return;
    m_foldedNodes = m_defaults.value(Settings::foldedNodes, m_account.currentUserID());
    rebuildIfChanged();
}

void KWProjectListPresenter::reload()
{
    build();
    recount();
}

void KWProjectListPresenter::clear()
{
    m_contents.reset();
    m_dataService.clear();
    m_counts.clear();
    if (onTreeRebuilt) onTreeRebuilt();
}

void KWProjectListPresenter::restoreSelection()
{
    const QString stored = m_defaults.value(Settings::selectedNode, m_account.currentUserID());
    const auto list = KWListIdentifier::userDefaultDecode(stored);
    m_selectedList = list && canShow(*list) ? *list : KWListIdentifier::todayProject();
    if (KWProjectListNode *node = selectedNode()) node->setIsSelected(true);
    if (onSelectionChanged) onSelectionChanged(m_selectedList);
}

void KWProjectListPresenter::select(const KWListIdentifier &list)
{
    if (!canShow(list)) return;
    m_defaults.set(Settings::selectedNode, list.userDefaultEncode(), m_account.currentUserID());
    if (list == m_selectedList) return;
    if (KWProjectListNode *before = selectedNode()) before->setIsSelected(false);
    m_selectedList = list;
    if (KWProjectListNode *node = selectedNode()) node->setIsSelected(true);
    if (onSelectionChanged) onSelectionChanged(list);
}

bool KWProjectListPresenter::canShow(const KWListIdentifier &list)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    return m_dataService.nodeFor(list) ||
           (list.type == KWListIdentifierType::SmartProject && smart && smart->isListOfTasks());
}

QString KWProjectListPresenter::titleOfSelectedList()
{
    if (const KWProjectListNode *node = selectedNode()) return node->title();
    const KWSmartProject *smart = KWSmartProject::withIdentifier(m_selectedList.entityID);
    return smart ? smart->displayName() : QString{};
}

void KWProjectListPresenter::setIsExpanded(bool isExpanded, KWProjectListNode &node)
{
    node.setIsExpanded(isExpanded);
    m_foldedNodes.removeAll(foldingKey(node));
    if (!node.isExpanded()) m_foldedNodes.append(foldingKey(node));
    m_defaults.set(Settings::foldedNodes, m_foldedNodes, m_account.currentUserID());
}

std::optional<int> KWProjectListPresenter::countOf(const KWProjectListNode &node) const
{
    const auto list = node.listIdentifier();
    return list ? m_counts.countCached(*list) : std::nullopt;
}

void KWProjectListPresenter::recount()
{
    if (m_account.isSignedIn()) m_counts.updateCountCache(m_account.currentUserID());
}
