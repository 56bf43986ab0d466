#include "lists/KWTaskListService.h"

#include "lists/ListSortType.h"
#include "lists/SectionUpdate.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "model/store/ListDays.h"
#include "model/store/TaskPositions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// More than any screen shows; read in a few milliseconds.
constexpr std::int64_t topRows = 120;

// Of completed tasks at the end of a list, and of lists of them.
struct Pages {
    int first;
    int next;
};
constexpr Pages completedAtTheEnd{5, 20};
constexpr Pages completedAlone{50, 50};

constexpr int daysOfCalendar = 90; // and as many more

const Pages &pagesOf(const KWListIdentifier &list)
{
    return ShownList::isOfClosedTasks(list) ? completedAlone : completedAtTheEnd;
}

// How a folded task stands among the folded sections of a list.
const QString foldedTask = u"task:"_s;

} // namespace

KWTaskListService::KWTaskListService(KWCoreDataManager &manager, KWAccountManager &account,
                                     KWNotificationCenter &center, KWEventBus &bus)
    : m_manager(manager), m_account(account), m_center(center), m_pendingDeletes(center, [this] {
        if (!m_showsOtherList) show(m_content, m_content.sections(m_pendingDeletes.taskIDs()));
        reload();
    })
{
    const auto reloadOn = [this](const QString &name) {
        m_observations.push_back(m_center.addObserver(name, [this](const KWNotification &) { reload(); }));
    };
    for (const QString &each :
         {KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
          KWNewDayComesNotification, KWNewHabitDayComesNotification, KWUserSettingsDidChangeNotification,
          KWKWRepeatInstanceGeneratedNotification, KWCalSubDidPullEventsNotification})
        reloadOn(each);
    for (const QString &each : {KWDataDidChangeOutsideMainAppNotification, KWNewDayComesNotification,
                                KWCalSubDidPullEventsNotification})
        m_observations.push_back(
            m_center.addObserver(each, [this](const KWNotification &) { askForOccurrences(); }));
    m_observations.push_back(m_center.addObserver(
        KWListDisplayConfigurationDidChangeNotification, [this](const KWNotification &notification) {
            const bool isOfList = notification.userInfo.value(u"listID"_s) == m_list.userDefaultEncode();
            if (isOfList && !m_savesFolding) reload();
        }));
    m_registration = bus.registerEventBus([this](const StoreChange &change) { take(change); });
}

void KWTaskListService::askForOccurrences() const
{
    if (!onOccurrencesNeeded || !m_account.isSignedIn()) return;
    const CXClock &clock = m_manager.store().clock();
    if (const auto days = daysOfList(m_list, clock.today(), m_calendarDays))
        onOccurrencesNeeded(clock.zone().startOfDay(days->first), clock.zone().startOfDay(days->end));
}

void KWTaskListService::take(const StoreChange &change)
{
    using enum RecordKind;
    if (change.touches(Task)) askForOccurrences();
    const auto touches = [&change](std::initializer_list<RecordKind> kinds) {
        return std::ranges::any_of(kinds, [&change](RecordKind each) { return change.touches(each); });
    };
    const bool hasEvents = daysOfList(m_list, {}, m_calendarDays).has_value();
    if (hasEvents && touches({CalSubscription, CalendarDisplayConfiguration})) return reload();
    const bool hasHabits = m_list == KWListIdentifier::todayProject();
    if (hasHabits && touches({Habit, HabitCheckin, HabitSkip})) return reload();
    if (m_list.type == KWListIdentifierType::Calendar) return;
    if (touches({ChecklistItem, Project, Column, Tag, ProjectGroup, Attachment, FocusSummary, Teamworker,
                 Filter}))
        return reload();
    if (!touches({Task, TaskDueDateSortOrder, TaskPrioritySortOrder, TaskProjectSortOrder, TaskTagSortOrder,
                  TaskPinnedSortOrder}))
        return;
    const StoreChange::Ids &tasks = change.of(Task);
    if (!readAgain(tasks.inserted + tasks.updated + tasks.deleted)) reload();
}

// Whether the list is true again, with nothing read but these tasks.
bool KWTaskListService::readAgain(const QStringList &taskIDs)
{
    constexpr int few = 100;
    const bool isKnown = !m_showsOtherList && !m_isReading && m_content.isWhole && shown().isSortable;
    if (!isKnown || taskIDs.size() > few || m_content.rows.size() <= topRows) return false;
    Result<ListContent::Changes> changes{ListContent::Changes{}};
    ListContent content = std::move(m_content);
    const Result<void> read = KWCoreDataService{m_manager}.sync_perform([&](ObjectContext &context) {
        changes = content.readAgain(taskIDs, m_account.currentUserID(), extent(-1), context);
        return changes ? Result<void>{} : changes.error();
    });
    if (!read) return false;
    const bool areAlone = !changes->areInClosedTasks && m_pendingDeletes.taskIDs().isEmpty();
    if (areAlone && (changes->areNone ||
                     putIntoSections(changes->rows, changes->tasks, content.shown, m_sections.categories))) {
        m_content = std::move(content);
        if (!changes->areNone && onRowsChanged) onRowsChanged();
        return true;
    }
    ListContent::Sections sections = content.sections(m_pendingDeletes.taskIDs());
    show(std::move(content), std::move(sections));
    return true;
}

ListExtent KWTaskListService::firstExtent(const KWListIdentifier &list)
{
    return {-1, pagesOf(list).first, daysOfCalendar};
}

QList<KWTaskListItemModel> KWTaskListService::rows() const
{
    QList<KWTaskListItemModel> rows;
    for (const KWTaskCategory &each : categories())
        rows += each.models();
    return rows;
}

KWTaskSortTypeMenu KWTaskListService::sortMenu() const
{
    KWTaskSortTypeMenu menu = m_content.shown.menu;
    menu.manualOrders = m_sections.manualOrders;
    return menu;
}

Result<void> KWTaskListService::setSortType(KWTaskSortType sortType)
{
    return saveSortType(sortType, m_list, m_account.currentUserID(), m_manager, m_center);
}

Result<UndoToken> KWTaskListService::resetManualOrder()
{
    const auto sortType = sortMenu().resetType();
    if (!sortType) return UndoToken{};
    return removePositions(m_content.shown.positionContext(), *sortType, m_manager);
}

Result<void> KWTaskListService::setShowsCompleted(bool showsCompleted)
{
    KWListDisplayConfigurationManager configurations{m_manager, m_center, m_account.currentUserID()};
    KWListDisplayConfigurationModel configuration = configurations.configuration(m_list);
    configuration.showsCompleted = showsCompleted;
    return configurations.save(configuration);
}

Result<void> KWTaskListService::setShowsEvents(bool showsEvents)
{
    KWListDisplayConfigurationManager configurations{m_manager, m_center, m_account.currentUserID()};
    KWListDisplayConfigurationModel configuration = configurations.configuration(m_list);
    configuration.showsEvents = showsEvents;
    return configurations.save(configuration);
}

void KWTaskListService::loadMore()
{
    if (m_list.type == KWListIdentifierType::Calendar) {
        m_calendarDays += daysOfCalendar;
        askForOccurrences();
        return reload();
    }
    if (!m_completionLoader) return;
    m_completionLoader->loadCompletedTasks(m_list.userDefaultEncode(), shown().projectIDs,
                                           [this](const Result<CompletedPage> &page) {
                                               if (!page) return tell(page.error());
                                               m_countToShowOfCompleted += pagesOf(m_list).next;
                                               reload();
                                           });
}

void KWTaskListService::setSectionsFolded(const QStringList &names, bool isFolded)
{
    const QSet<QString> before = m_folded.collapsedCategories;
    const QSet<QString> changed{names.begin(), names.end()};
    isFolded ? m_folded.collapsedCategories.unite(changed) : m_folded.collapsedCategories.subtract(changed);
    if (m_folded.collapsedCategories != before) saveFolding();
}

void KWTaskListService::setTaskFolded(const QString &taskID, bool isFolded)
{
    if (m_folded.tasks.contains(taskID) == isFolded) return;
    isFolded ? void(m_folded.tasks.insert(taskID)) : void(m_folded.tasks.remove(taskID));
    saveFolding();
    m_center.post(collapseStateChanged, taskID);
}

void KWTaskListService::readFolding()
{
    const KWListDisplayConfigurationManager configurations{m_manager, m_center, m_account.currentUserID()};
    m_folded = {};
    for (const QString &each : configurations.configuration(m_list).collapsedGroups)
        if (each.startsWith(foldedTask))
            m_folded.tasks.insert(each.sliced(foldedTask.size()));
        else
            m_folded.collapsedCategories.insert(each);
}

void KWTaskListService::saveFolding()
{
    if (onRowsChanged) onRowsChanged();
    KWListDisplayConfigurationManager configurations{m_manager, m_center, m_account.currentUserID()};
    KWListDisplayConfigurationModel configuration = configurations.configuration(m_list);
    configuration.collapsedGroups = m_folded.collapsedCategories.values();
    for (const QString &each : std::as_const(m_folded.tasks))
        configuration.collapsedGroups.append(foldedTask + each);
    configuration.collapsedGroups.sort();
    m_savesFolding = true;
    tell(configurations.save(configuration));
    m_savesFolding = false;
}

void KWTaskListService::tell(const Result<void> &result)
{
    if (!result && onFailure) onFailure(result.error().sentence);
}

void KWTaskListService::select(const KWListIdentifier &list)
{
    if (list == m_list) return;
    m_list = list;
    m_showsOtherList = true;
    const ListExtent first = firstExtent(list);
    m_countToShowOfCompleted = int(first.countToShowOfCompleted);
    m_calendarDays = first.calendarDays;
    m_completionLoader.emplace(m_manager, m_account.currentUserID());
    readFolding();
    askForOccurrences();
    reload();
}

void KWTaskListService::clear()
{
    m_request.reset();
    m_completionLoader.reset();
    m_list = {};
    m_folded = {};
    m_showsOtherList = true;
    show({}, {});
}

void KWTaskListService::reload()
{
    m_request = std::make_shared<Request>();
    m_isReading = false;
    if (!m_account.isSignedIn() || m_list.entityID.isEmpty()) return;
    // A long list that is shown already is replaced whole, so that it never shrinks meanwhile.
    const bool isLongList = !m_showsOtherList && m_content.rows.size() > topRows;
    if (isLongList || readTop()) readAll();
}

// Whether there is more.
bool KWTaskListService::readTop()
{
    Result<ListContent> content{ListContent{}};
    const Result<void> read = KWCoreDataService{m_manager}.sync_perform([&](ObjectContext &context) {
        content = ListContent::read(m_list, m_account.currentUserID(), extent(topRows), context);
        return content ? Result<void>{} : content.error();
    });
    tell(read);
    // What the list selected before has is not shown in the place of this one's.
    if (!read && m_showsOtherList) show({.shown = {.list = m_list}}, {});
    if (!read) return false;
    const bool isWhole = content->isWhole;
    if (content->hasTop) {
        ListContent::Sections sections = content->sections(m_pendingDeletes.taskIDs());
        show(std::move(*content), std::move(sections));
    }
    return !isWhole;
}

void KWTaskListService::readAll()
{
    struct Answer {
        ListContent content;
        ListContent::Sections sections;
    };
    auto answer = std::make_shared<Answer>();
    const auto read = [answer, list = m_list, userID = m_account.currentUserID(), extent = extent(-1),
                       hidden = m_pendingDeletes.taskIDs()](ObjectContext &context) -> Result<void> {
        Result<ListContent> content = ListContent::read(list, userID, extent, context);
        if (!content) return content.error();
        answer->sections = content->sections(hidden);
        answer->content = std::move(*content);
        return {};
    };
    m_isReading = true;
    KWCoreDataService{m_manager}.async_perform(
        read, [this, answer, waiting = std::weak_ptr{m_request}](const Result<void> &done) {
            if (waiting.expired()) return;
            m_isReading = false;
            tell(done);
            if (done) show(std::move(answer->content), std::move(answer->sections));
        });
}

void KWTaskListService::show(ListContent content, ListContent::Sections sections)
{
    const bool isSame =
        !m_showsOtherList && sections == m_sections && content.shown.menu == m_content.shown.menu;
    m_content = std::move(content);
    if (isSame) return;
    m_showsOtherList = false;
    m_sections = std::move(sections);
    if (onRowsChanged) onRowsChanged();
}
