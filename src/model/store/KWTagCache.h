#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/store/KWCoreDataManager.h"

#include <QHash>

/// The names of one account's tags, in memory. Main thread.
class KWTagCache {
public:
    /// Posts "KWTagCacheDidUpdateNotification" whenever the names or labels changed.
    KWTagCache(KWCoreDataManager &manager, KWNotificationCenter &center);

    /// Reads the tags of that user, of nobody when it is empty, and keeps them true from then on.
    void load(const QString &userID);

    /// In the manual order of the tags.
    const QStringList &names() const { return m_names; }
    bool contains(const QString &name) const { return m_labels.contains(name); }
    /// The name itself for a tag that there is not.
    QString labelOf(const QString &name) const { return m_labels.value(name, name); }

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    QString m_userID;
    QStringList m_names;
    QHash<QString, QString> m_labels; // by name
    KWEventBus::Registration m_registration;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
