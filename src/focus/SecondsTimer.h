#pragma once

#include "corvexkit/time/CXClock.h"

/// Calls every full second of monotonic time, without drift: calls that came late are caught up on.
/// Suspended, it keeps the part of a second that had gone by. Main thread.
class SecondsTimer {
public:
    /// Begins at once. The clock outlives it.
    SecondsTimer(CXClock &clock, std::function<void()> action);

    void suspend();
    void resume();
    bool isSuspended() const { return m_remaining.has_value(); }

private:
    void schedule();
    void fire();

    CXClock &m_clock;
    std::function<void()> m_action;
    std::chrono::milliseconds m_due; ///< in monotonic time
    std::optional<std::chrono::milliseconds> m_remaining;
    ClockCall m_call;
};
