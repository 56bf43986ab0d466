#pragma once

#include "corvexkit/stopwatch/StopwatchTimeline.h"

namespace Corvex::Focus {

/// What a stopwatch keeps over restarts, as one JSON text.
struct StopwatchSession {
    StopwatchTimeline timeline;             ///< of the timing under way, empty when there is none
    QString object;                         ///< what it is spent on, or will be once it goes on
    Instant date{};                         ///< the last moment seen, in the time of the timing
    Instant wallClock{};                    ///< what the wall clock said then
    std::vector<StopwatchTimeline> stopped; ///< not settled yet, the oldest first

    bool isEmpty() const { return timeline.isEmpty() && stopped.empty(); }

    QString toText() const;
    /// Fails for a damaged text, with a sentence for the log.
    static Result<StopwatchSession> fromText(const QString &text);

    bool operator==(const StopwatchSession &) const = default;
};

} // namespace Corvex::Focus
