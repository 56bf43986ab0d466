#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWListDataFetcher.h"

#include <QHash>

#include <memory>

/// The counts of the sidebar. They are worked out in the background and kept; a recount ends in
/// `countChanged`. Main thread.
class KWProjectListCountFetcher {
public:
    KWProjectListCountFetcher(KWCoreDataManager &manager, KWNotificationCenter &center);

    /// The last known count, nothing before the first recount and for lists without a count.
    std::optional<int> countCached(const KWListIdentifier &list) const;
    /// Counts these lists of the user again. Requests made before the count has begun are joined.
    void updateCountCache(const QString &userID, const QList<KWListIdentifier> &lists);
    void clear();

private:
    struct Life {};
    using Counts = QHash<QString, std::optional<int>>; // by encoded list

    void recount();

    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    Counts m_counts;
    QString m_userID;
    QList<KWListIdentifier> m_wanted;
    int m_generation = 0; // of the cache: an answer for an older one is dropped
    bool m_isCounting = false;
    std::shared_ptr<Life> m_life = std::make_shared<Life>(); // an answer that outlives it is dropped
};
