#include "lists/KWProjectListPresenter.h"

#include "lists/SidebarRecounts.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWUserDefaults.h"

#include <algorithm>
#include <array>

namespace {

QString foldingKey(const KWProjectListNode &node)
{
    return QString::number(int(node.type())) + u':' + node.entityID();
}

bool comesFolded(const KWProjectListNode &node) { return node.type() == KWProjectListNodeType::archived; }

} // namespace

KWProjectListPresenter::KWProjectListPresenter(KWCoreDataManager &manager, KWAccountManager &account,
                                               KWProjectListCountFetcher &counts, KWUserDefaults &defaults,
                                               KWNotificationCenter &center, KWEventBus &bus)
    : m_manager(manager), m_account(account), m_counts(counts), m_defaults(defaults), m_dataService(manager)
{
    m_dataService.isFolded = [this](const KWProjectListNode &node) {
        return m_foldedNodes.contains(foldingKey(node)) != comesFolded(node);
    };
    m_dataService.isEmpty = [this](const KWSmartProject &smart) {
        return m_counts.countCached(KWListIdentifier::smartProject(smart.identifier())).value_or(1) == 0;
    };
    m_dataService.onReplaced = [this] { didReplace(); };
    observe(center);
    m_registration = bus.registerEventBus([this](const StoreChange &change) {
        constexpr std::array shown{RecordKind::Project,
                                   RecordKind::ProjectGroup,
                                   RecordKind::Tag,
                                   RecordKind::Filter,
                                   RecordKind::Team,
                                   RecordKind::SmartProjectSetting,
                                   RecordKind::PomoSettings,
                                   RecordKind::CalSubscription,
                                   RecordKind::CalendarDisplayConfiguration};
        const bool mayChangeTree =
            std::ranges::any_of(shown, [&change](RecordKind each) { return change.touches(each); });
        if (mayChangeTree && m_account.isSignedIn() && contents())
            m_dataService.rebuildNow(m_account.currentUserID());
    });
}

void KWProjectListPresenter::observe(KWNotificationCenter &center)
{
    const auto on = [this, &center](const QString &name, KWNotificationCenter::Handler handler) {
        m_observations.push_back(center.addObserver(name, std::move(handler)));
    };
    using Presenter = KWProjectListPresenter;
    const std::pair<QString, void (Presenter::*)()> handlers[]{
        {KWSmartListDisplayStatusDidChangeNotification, &Presenter::smartListVisibilityDidChange},
        {KWSidebarSortOrderDidChangeNotification, &Presenter::sidebarSortorderChanged},
        {KWDataDidChangeOutsideMainAppNotification, &Presenter::dataDidChangeOutsideMainApp},
        {KWTeamDidPullNotification, &Presenter::teamDidPull},
        {KWSingleProjectSyncFinishedNotification, &Presenter::singleProjectSyncFinished},
        {KWCalSubDisplayStatusDidChangeNotification, &Presenter::calSubDisplayStatusChanged},
        {KWCalSubscriptionAvaliableDidChangeNotification, &Presenter::calSubscriptionAvaliableChanged},
        {KWHabitSettingsChangedNotification, &Presenter::habitSettingsDidChange},
        {countChanged, &Presenter::itemsCountDidChange}};
    for (const auto &[name, handler] : handlers)
        on(name, [this, handler = handler](const auto &) { (this->*handler)(); });
    on(KWSyncDidBatchPullNotification, [this](const auto &pull) { syncDidBatchPull(pull); });
    for (const QString &each : recountNotifications())
        on(each, [this](const KWNotification &posted) { recount(countsToRenewOn(posted.name)); });
}

void KWProjectListPresenter::syncDidBatchPull(const KWNotification &pull)
{
    const bool hasResult = pull.userInfo.value(kKWSyncBatchPullResultKey, true).toBool();
    if (!hasResult || !pull.userInfo.value(kKWSyncBatchPullHasChangesKey, true).toBool()) return;
    m_account.resetDefaultAddToListIfNeeded();
    reload();
}

void KWProjectListPresenter::itemsCountDidChange()
{
    m_dataService.refreshSmartLists();
    showCounts(listsRootNode());
}

void KWProjectListPresenter::showCounts(KWProjectListNode &node)
{
    node.setCount(countOf(node));
    for (const auto &each : node.children())
        showCounts(*each);
}

void KWProjectListPresenter::didReplace()
{
    m_observerNodeSelectionNotification = false;
    if (onTreeRebuilt) onTreeRebuilt();
    m_observerNodeSelectionNotification = true;
    // A node that is named in place, or an empty smart list that goes, changes nothing of what is shown.
    if (m_announced == contents()) return;
    const bool isFirst = !m_announced;
    m_announced = contents();
    const KWListIdentifier before = m_selectedList;
    restoreSelection();
    if (isFirst || m_selectedList != before) {
        if (onSelectionChanged) onSelectionChanged(m_selectedList);
    } else if (onContentsChanged) {
        onContentsChanged();
    }
}

void KWProjectListPresenter::build()
{
    if (!m_account.isSignedIn()) return;
    m_foldedNodes = m_defaults.value(Settings::foldedNodes, m_account.currentUserID());
    m_dataService.rebuildNow(m_account.currentUserID());
}

void KWProjectListPresenter::refresh(std::span<const ProjectListSection> sections)
{
    if (m_account.isSignedIn() && contents()) m_dataService.rebuild(m_account.currentUserID(), sections);
}

void KWProjectListPresenter::reload()
{
    if (!contents())
        build();
    else
        refresh(allProjectListSections);
    recount();
}

void KWProjectListPresenter::clear()
{
    m_dataService.clear();
    m_announced.reset();
    m_adding.reset();
    m_counts.clear();
    if (onTreeRebuilt) onTreeRebuilt();
}

void KWProjectListPresenter::restoreSelection()
{
    const QString stored = m_defaults.value(Settings::selectedNode, m_account.currentUserID());
    const auto list = KWListIdentifier::userDefaultDecode(stored);
    m_selectedList = list && canShow(*list) ? *list : defaultList();
    if (KWProjectListNode *node = selectedNode()) node->setIsSelected(true);
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

KWListIdentifier KWProjectListPresenter::defaultList() const
{
    const auto shown = m_dataService.lists();
    const KWListIdentifier today = KWListIdentifier::todayProject();
    return shown.contains(today) || shown.isEmpty() ? today : shown.first();
}

void KWProjectListPresenter::projectListNodeSelectionChanged(const KWProjectListNode &node)
{
    if (!m_observerNodeSelectionNotification) return;
    if (const auto list = node.listIdentifier()) select(*list);
}

bool KWProjectListPresenter::canShow(const KWListIdentifier &list)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    return m_dataService.nodeFor(list) ||
           (list.type == KWListIdentifierType::SmartProject && smart &&
            (smart->isListOfTasks() || smart->isSummary() || smart == &KWSmartProject::habit()));
}

bool KWProjectListPresenter::isSelectedListClosed()
{
    const KWProjectListNode *node = selectedNode();
    const auto list = node ? listOf(*node) : std::nullopt;
    return list && list->closed;
}

bool KWProjectListPresenter::isSelectedListReadOnly()
{
    const KWProjectListNode *node = selectedNode();
    const auto list = node ? listOf(*node) : std::nullopt;
    return list && (list->closed || list->permission != KWProjectPermissionWrite);
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
    if (node.isExpanded() == comesFolded(node)) m_foldedNodes.append(foldingKey(node));
    m_defaults.set(Settings::foldedNodes, m_foldedNodes, m_account.currentUserID());
}

void KWProjectListPresenter::beginAdding(NewNode node)
{
    const bool isTag = node.type == KWProjectListNodeType::tag;
    KWProjectListNode *parent = isTag ? &m_dataService.tagNode() : &m_dataService.listNode();
    for (const auto &each : parent->children()) {
        const bool holdsPersonal = !isTag && each->type() == KWProjectListNodeType::team_personal;
        if (holdsPersonal) parent = each.get();
    }
    if (!node.parentID.isEmpty())
        if (KWProjectListNode *above = m_dataService.nodeFor(isTag ? KWListIdentifier::tag(node.parentID)
                                                                   : KWListIdentifier::group(node.parentID)))
            parent = above;
    m_adding = std::move(node);
    m_dataService.setUnnamedNode(m_adding->type, parent);
}

void KWProjectListPresenter::endAdding()
{
    if (!std::exchange(m_adding, std::nullopt)) return;
    m_dataService.setUnnamedNode(KWProjectListNodeType::none);
}

std::optional<KWTagModel> KWProjectListPresenter::addingTag() const
{
    if (!m_adding || m_adding->type != KWProjectListNodeType::tag) return std::nullopt;
    KWTagModel tag;
    tag.parent = m_adding->parentID;
    return tag;
}

std::optional<KWProjectModel> KWProjectListPresenter::listOf(const KWProjectListNode &node) const
{
    if (!contents() || node.type() != KWProjectListNodeType::project) return std::nullopt;
    for (const auto *lists : {&contents()->projects, &contents()->closedProjects})
        for (const KWProjectModel &each : *lists)
            if (each.sid == node.entityID()) return each;
    return std::nullopt;
}

std::optional<KWCalSubscriptionModel> KWProjectListPresenter::calendarOf(const KWProjectListNode &node) const
{
    if (!contents() || node.type() != KWProjectListNodeType::calsub_url) return std::nullopt;
    for (const KWCalSubscriptionModel &each : contents()->calendars)
        if (each.sid == node.entityID()) return each;
    return std::nullopt;
}

std::optional<KWCalSubscriptionModel> KWProjectListPresenter::selectedCalendar()
{
    const KWProjectListNode *node = selectedNode();
    return node ? calendarOf(*node) : std::nullopt;
}

bool KWProjectListPresenter::isShownInCalendar(const KWProjectListNode &calendar) const
{
    return contents() && !contents()->hiddenCalendars.contains(calendar.entityID());
}

bool KWProjectListPresenter::isShownIfNotEmpty(const KWProjectListNode &node) const
{
    return contents() && contents()->hiddenIfEmpty.contains(node.entityID());
}

QList<ProjectListCommand> KWProjectListPresenter::popMenu(const KWProjectListNode &node) const
{
    return projectListMenu(node, listOf(node));
}

std::optional<int> KWProjectListPresenter::countOf(const KWProjectListNode &node) const
{
    const auto list = node.listIdentifier();
    return list ? m_counts.countCached(*list) : std::nullopt;
}

void KWProjectListPresenter::recount(SidebarCountKinds kinds)
{
    if (m_account.isSignedIn() && kinds) m_counts.updateCountCache(m_account.currentUserID(), kinds);
}
