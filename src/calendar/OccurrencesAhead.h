#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/events/KWNotificationCenter.h"

#include <vector>

class KWRepeatInstanceService;

/// Has the occurrences of the next half-year generated before they are asked for: some seconds after signing
/// in, when the first window stands, and with every new day. Main thread.
class OccurrencesAhead {
public:
    /// All outlive it.
    OccurrencesAhead(KWRepeatInstanceService &repeats, KWNotificationCenter &center, CXClock &clock);

private:
    ClockCall m_soon;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
