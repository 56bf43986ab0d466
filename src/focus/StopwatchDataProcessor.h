#pragma once

#include "corvexkit/Result.h"

namespace Corvex::Focus {
class StopwatchTimeline;
}
class FocusRecordQueue;
class OrvaneKit;

/// Stores what the stopwatch has timed. Main thread.
class StopwatchDataProcessor {
public:
    /// Both outlive it.
    StopwatchDataProcessor(OrvaneKit &kit, FocusRecordQueue &records) : m_kit{kit}, m_records{records} {}

    /// Stores a stopped timing of the user who is signed in as a KWPomodoro of the type stopwatch with its
    /// slices, and credits each task and habit with its own seconds, in one save. One that is stored
    /// already, because the program broke off right behind the save, is not stored again. It fails if the
    /// timing is neither stored nor waits for that on disk.
    Result<void> saveStopwatch(const Corvex::Focus::StopwatchTimeline &timeline);

private:
    OrvaneKit &m_kit;
    FocusRecordQueue &m_records;
};
