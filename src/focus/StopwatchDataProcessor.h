#pragma once

#include "corvexkit/Result.h"

namespace Corvex::Focus {
class StopwatchTimeline;
}
class OrvaneKit;

/// Stores what the stopwatch has timed. Main thread.
class StopwatchDataProcessor {
public:
    /// The kit outlives it.
    explicit StopwatchDataProcessor(OrvaneKit &kit) : m_kit{kit} {}

    /// Stores a stopped timing of the user who is signed in as a KWPomodoro of the type stopwatch with its
    /// slices, and credits each task and habit with its own seconds, in one save. One that is stored
    /// already, because the program broke off right behind the save, is not stored again.
    Result<void> saveStopwatch(const Corvex::Focus::StopwatchTimeline &timeline);

private:
    OrvaneKit &m_kit;
};
