#pragma once

#include "calendar/KWGenerateInstanceOperation.h"
#include "corvexkit/time/CXClock.h"

#include <QObject>

class KWAccountManager;
class KWNotificationCenter;

/// Turns repeating tasks, and events of subscribed calendars, into stored occurrences of a range, so that
/// views of days can show them as they show everything else. What was generated of a range is kept and not
/// generated again until its task is another one. KWKWRepeatInstanceGeneratedNotification tells when there
/// are others now.
class KWRepeatInstanceService {
public:
    /// All outlive it.
    KWRepeatInstanceService(KWCoreDataManager &manager, KWAccountManager &account,
                            KWNotificationCenter &center, const CXClock &clock);

    using Completion = KWGenerateInstanceOperation::Completion;
    /// Those from `start` to `end`, both included. A request takes the place of those before it: what they
    /// have not finished they leave, and those that have not begun answer nothing. Any thread; the completion
    /// is called on the main one.
    void generateInstances(Instant start, Instant end, Completion completion = {});
    /// From the beginning of today on.
    void generateInstancesWithInSixMonthes();

private:
    void enqueue(Instant start, Instant end, const Completion &completion);
    void announce(Instant start, Instant end);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWNotificationCenter &m_center;
    const CXClock &m_clock;
    OperationQueue m_generateRepeatInstances;
    QObject m_mainThread;
};
