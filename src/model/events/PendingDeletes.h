#pragma once

#include "model/events/KWNotificationCenter.h"

#include <QSet>
#include <QString>

/// What a delayed delete is about.
enum class KWDelayDeleteType { Tasks, Events };

/// What becomes of it.
enum class KWDelayDeleteStatus {
    Started,   ///< hide them
    Undone,    ///< show them again
    Committed, ///< they are deleted
};

/// The tasks that wait to be deleted, kept from delayDeleteStatusChangedNotification by whoever leaves
/// them out of what it shows. Main thread.
class PendingDeletes {
public:
    /// `onChanged` is called when tasks are to be hidden or shown again.
    PendingDeletes(KWNotificationCenter &center, std::function<void()> onChanged);

    /// Those that have waited since before this was there.
    void startWith(const QSet<QString> &taskIDs) { m_taskIDs = taskIDs; }

    bool containsTask(const QString &taskID) const { return m_taskIDs.contains(taskID); }
    const QSet<QString> &taskIDs() const { return m_taskIDs; }

private:
    void take(const KWNotification &notification);

    QSet<QString> m_taskIDs;
    std::function<void()> m_onChanged;
    KWNotificationCenter::Observation m_observation;
};
