#include "model/store/KWProjectListCountFetcher.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWHabit.h"
#include "model/records/KWTask.h"
#include "model/store/KWListDataFetcher.h"

#include <algorithm>

namespace {

constexpr CXLogger countLog{u"counts"};

bool isChecklist(const std::optional<TaskPlace> &place)
{
    return place && place->kind == KWTaskKindChecklist;
}

// Whether other checklist items may be counted now.
bool touchesChecklists(const StoreChange &change)
{
    return change.touches(RecordKind::ChecklistItem) ||
           std::ranges::any_of(change.taskMoves, [](const TaskMove &each) {
               return isChecklist(each.from) || isChecklist(each.to);
           });
}

// Whether other habits may be open today now.
bool touchesHabits(const StoreChange &change)
{
    return change.touches(RecordKind::Habit) || change.touches(RecordKind::HabitCheckin) ||
           change.touches(RecordKind::HabitSkip);
}

} // namespace

KWProjectListCountFetcher::KWProjectListCountFetcher(KWCoreDataManager &manager, KWNotificationCenter &center)
    : m_manager(manager)
    , m_center(center)
    , m_pendingDeletes(center, [this] { announce(); })
    , m_registration(manager.bus().registerEventBus([this](const StoreChange &change) { take(change); }))
{
}

std::optional<int> KWProjectListCountFetcher::countCached(const KWListIdentifier &list) const
{
    return m_shown ? m_shown->count(list) : std::nullopt;
}

int KWProjectListCountFetcher::countForTag(const QString &tagName, const QString &userID,
                                           ObjectContext &context)
{
    const KWListDataFetcher fetcher{context.clock()};
    return fetcher.count({userID, KWListIdentifier::tag(tagName)}, context.connection()).valueOr(0);
}

void KWProjectListCountFetcher::clear()
{
    ++m_generation;
    m_counts.reset();
    m_shown.reset();
    m_userID.clear();
    m_wanted = {};
}

void KWProjectListCountFetcher::updateCountCache(const QString &userID, SidebarCountKinds kinds)
{
    if (userID != m_userID) clear();
    m_userID = userID;
    m_wanted |= kinds;
    if (!m_isCounting) recount();
}

void KWProjectListCountFetcher::take(const StoreChange &change)
{
    if (m_userID.isEmpty()) return;
    if (change.touches(RecordKind::CalSubscription)) updateCountCache(m_userID, SidebarCountKind::Calendars);
    const bool placesChanged = change.touches(RecordKind::Project) || change.touches(RecordKind::Tag) ||
                               change.touches(RecordKind::User) || change.touches(RecordKind::Filter) ||
                               change.touches(RecordKind::UserSettings);
    const bool itemsChanged = touchesChecklists(change);
    const bool habitsChanged = touchesHabits(change);
    if (change.taskMoves.isEmpty() && !placesChanged && !itemsChanged && !habitsChanged) return;
    if (habitsChanged) m_wanted |= SidebarCountKind::SmartLists;
    // A count under way may or may not have seen this save, and one that is done may have seen a late one.
    if (m_isCounting || change.isLate) m_wanted = allSidebarCounts;
    if (m_counts) {
        if (placesChanged)
            countNow();
        else
            m_counts->apply(change.taskMoves);
        if (itemsChanged && !placesChanged) recountItems(*m_counts, {});
        announce();
    }
    if (!m_isCounting) recount();
}

void KWProjectListCountFetcher::countNow()
{
    ObjectContext &context = m_manager.MR_defaultContext();
    auto counts = SidebarCounts::read(m_userID, context.clock(), context.connection());
    if (!counts) return countLog.error(counts.error().sentence);
    counts->setOpenHabits(m_counts->openHabits());
    m_counts = *counts;
}

void KWProjectListCountFetcher::recountItems(SidebarCounts &counts, const QStringList &leftOut)
{
    Connection &connection = m_manager.MR_defaultContext().connection();
    if (const auto counted = counts.recountChecklistItems(m_userID, leftOut, connection); !counted)
        countLog.error(counted.error().sentence);
}

void KWProjectListCountFetcher::announce()
{
    if (!m_counts) return;
    m_shown = m_counts;
    QList<TaskMove> hidden;
    ObjectContext &context = m_manager.MR_defaultContext();
    for (const QString &each : m_pendingDeletes.taskIDs())
        if (const KWTask *task = context.find<KWTask>(each))
            hidden.append({TaskPlace::of(task->model()), std::nullopt});
    m_shown->apply(hidden);
    if (!hidden.isEmpty()) recountItems(*m_shown, m_pendingDeletes.taskIDs().values());
    m_center.post(countChanged);
}

void KWProjectListCountFetcher::recount()
{
    const SidebarCountKinds kinds = std::exchange(m_wanted, {});
    if (!kinds) return;
    m_isCounting = true;
    auto counts = std::make_shared<SidebarCounts>();
    const auto count = [counts, userID = m_userID](ObjectContext &context) -> Result<void> {
        Result<SidebarCounts> read = SidebarCounts::read(userID, context.clock(), context.connection());
        if (!read) return read.error();
        *counts = std::move(*read);
        counts->setOpenHabits(KWHabit::countOpenToday(userID, context));
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(count,
                                               [this, counts, kinds, generation = m_generation,
                                                life = std::weak_ptr{m_life}](const Result<void> &done) {
                                                   if (life.expired()) return;
                                                   m_isCounting = false;
                                                   if (generation == m_generation)
                                                       finish(done, *counts, kinds);
                                                   recount();
                                               });
}

void KWProjectListCountFetcher::finish(const Result<void> &done, const SidebarCounts &counts,
                                       SidebarCountKinds kinds)
{
    if (!done) {
        countLog.error(done.error().sentence);
        return;
    }
    // What is kept was changed by every save, and another count follows.
    if (m_counts && m_wanted) {
        m_wanted |= kinds;
        return;
    }
    if (m_counts)
        m_counts->take(counts, kinds);
    else
        m_counts = counts;
    announce();
}
