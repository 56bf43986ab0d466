#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/events/PendingDeletes.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/SidebarCounts.h"

#include <memory>

/// The counts of the sidebar. They are counted once in the background; after that they are right after
/// every save, before any later listener of the bus hears of it: tasks that moved change the numbers of
/// their lists, checklist items are counted again, a save of lists, filters or the account counts all at
/// once. A save in the background is counted again there as well. Tasks that wait to be deleted are not
/// counted. Every change ends in `countChanged`. Main thread.
class KWProjectListCountFetcher {
public:
    KWProjectListCountFetcher(KWCoreDataManager &manager, KWNotificationCenter &center);

    /// Nothing before the first count and for lists without a number.
    std::optional<int> countCached(const KWListIdentifier &list) const;
    /// Counts those lists of the user again: another day has come, or another process has written. Requests
    /// made before the count has begun are joined.
    void updateCountCache(const QString &userID, SidebarCountKinds kinds = allSidebarCounts);
    void clear();

    /// The open tasks with the tag in the user's open lists, counted now.
    static int countForTag(const QString &tagName, const QString &userID, ObjectContext &context);

private:
    struct Life {};

    void take(const StoreChange &change);
    void countNow();
    void recountItems(SidebarCounts &counts, const QStringList &leftOut);
    void recount();
    void announce();
    void finish(const Result<void> &done, const SidebarCounts &counts, SidebarCountKinds kinds);

    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    std::optional<SidebarCounts> m_counts;
    std::optional<SidebarCounts> m_shown; // without the tasks that wait to be deleted
    PendingDeletes m_pendingDeletes;
    QString m_userID;
    int m_generation = 0; // of the cache: an answer for an older one is dropped
    bool m_isCounting = false;
    SidebarCountKinds m_wanted; // by the count that begins after the one under way
    KWEventBus::Registration m_registration;
    std::shared_ptr<Life> m_life = std::make_shared<Life>(); // an answer that outlives it is dropped
};
