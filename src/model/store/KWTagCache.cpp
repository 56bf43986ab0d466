#include "model/store/KWTagCache.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWTag.h"

KWTagCache::KWTagCache(KWCoreDataManager &manager, KWNotificationCenter &center)
    : m_manager(manager), m_center(center)
{
    m_registration = manager.bus().registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::Tag)) load(m_userID);
    });
    for (const QString &name : {KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification})
        m_observations.push_back(
            center.addObserver(name, [this](const KWNotification &) { load(m_userID); }));
}

void KWTagCache::load(const QString &userID)
{
    m_userID = userID;
    QStringList names;
    QHash<QString, QString> labels;
    for (const KWTag *each : KWTag::findTagsOfUser(userID, m_manager.MR_defaultContext())) {
        names.append((*each)->name);
        labels.insert((*each)->name, (*each)->label);
    }
    if (names == m_names && labels == m_labels) return;
    m_names = std::move(names);
    m_labels = std::move(labels);
    m_center.post(KWTagCacheDidUpdateNotification);
}
