#pragma once

#include "corvexkit/Result.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWCoreDataManager;
class KWNotificationCenter;

/// Duplicates tasks. Main thread.
class KWTaskCopier {
public:
    KWTaskCopier(KWCoreDataManager &manager, KWNotificationCenter &center)
        : m_manager(manager), m_center(center)
    {
    }

    struct Copied {
        QStringList taskIDs; ///< of the copies, in the order asked for
        UndoToken undo;
    };
    /// Makes an open copy right behind each task: with its checklist, attachments and the open tasks below
    /// it, in the same list and parent; it reminds of what is ahead. A task that is copied below another
    /// one is not copied once more. Posts KWWillDuplicateTaskNotification for each before. One save, or
    /// none where one is in the trash or in a list that may only be read.
    Result<Copied> copy(const QStringList &taskIDs);

private:
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
};
