#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"

class KWCoreDataManager;
class QString;

/// Completes and reopens tasks. Main thread.
class KWTaskTicker {
public:
    explicit KWTaskTicker(KWCoreDataManager &manager) : m_manager(manager) {}

    /// Completes an open task, reopens a closed one. Answers the status it has now.
    Result<KWTaskStatus> tick(const QString &taskID);
    Result<KWTaskStatus> updateStatus(KWTaskStatus status, const QString &taskID);

private:
    KWCoreDataManager &m_manager;
};
