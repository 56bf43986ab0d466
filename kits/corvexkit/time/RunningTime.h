#pragma once

#include "corvexkit/time/CXClock.h"

#include <optional>

/// The time of day as it runs on from a moment, whatever is done to the wall clock meanwhile: what is
/// timed by it gets neither longer nor shorter when somebody sets the clock. The owner tells of sleep,
/// during which monotonic time stands still; sleep that nobody tells of is not counted. Main thread.
class RunningTime {
public:
    /// Anchored at once. `clock` must outlive this.
    explicit RunningTime(const CXClock &clock);

    /// Anchors at the wall clock as it stands now.
    void start();
    /// Never goes back between two starts.
    Instant now() const;

    /// Between these two the wall clock alone knows how much time went by, so its gain on monotonic time
    /// is added; a clock that was set back meanwhile adds nothing. A second willSleep() before the wake,
    /// and a wake without a sleep, change nothing.
    void willSleep();
    void didWake();

private:
    struct Reading {
        Instant wall;
        std::chrono::milliseconds monotonic;
    };
    Reading read() const { return {m_clock.now(), m_clock.monotonicNow()}; }

    const CXClock &m_clock;
    Reading m_anchor;
    std::optional<Reading> m_fellAsleep;
    std::chrono::milliseconds m_slept{0};
};
