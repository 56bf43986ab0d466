#pragma once

#include "corvexkit/Result.h"

#include <QString>

class KWCoreDataManager;
class KWNotificationCenter;

/// Duplicates tasks. Main thread.
class KWTaskCopier {
public:
    KWTaskCopier(KWCoreDataManager &manager, KWNotificationCenter &center)
        : m_manager(manager), m_center(center)
    {
    }

    /// Makes an open copy right behind the task: with its checklist, attachments and the open tasks below
    /// it, in the same list and parent; it reminds of what is ahead. Posts KWWillDuplicateTaskNotification
    /// before. Answers the copy's id. A task in the trash is refused.
    Result<QString> copy(const QString &taskID);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
};
