#pragma once

#include "calendar/KWAsyncOperation.h"
#include "corvexkit/time/Instant.h"

class KWCoreDataManager;

/// Generates the occurrences of a range, see RepeatInstanceRun, in one save in the background.
class KWGenerateInstanceOperation : public KWAsyncOperation {
public:
    /// Main thread, before the operation has finished. Nothing is generated of a run that failed or was
    /// cancelled.
    using Completion = std::function<void(bool generated, Instant startDate, Instant endDate)>;

    KWGenerateInstanceOperation(KWCoreDataManager &manager, QString userID, Instant startDate,
                                Instant endDate, Completion completion);

protected:
    void main() override;

private:
    KWCoreDataManager &m_manager;
    const QString m_userID;
    const Instant m_startDate;
    const Instant m_endDate;
    const Completion m_completion;
};
