#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"

#include <QJsonObject>

#include <optional>
#include <vector>

namespace Corvex::Focus {

/// A stretch of a timing that was spent on one thing, or paused.
struct StopwatchSegment {
    enum class Kind { Running, Paused };

    Kind kind = Kind::Running;
    Instant startDate{};
    std::optional<Instant> endDate; ///< none while it is open
    QString object;                 ///< what a running one was spent on, empty for nothing

    bool isRunning() const { return kind == Kind::Running; }
    /// Of an open one up to `now`, and nothing when that is before its start.
    std::chrono::milliseconds duration(Instant now) const;

    bool operator==(const StopwatchSegment &) const = default;
};

/// What a stopwatch has timed, in segments that follow each other; only the last one may be open.
class StopwatchTimeline {
public:
    const std::vector<StopwatchSegment> &segments() const { return m_segments; }
    bool isEmpty() const { return m_segments.empty(); }
    /// The segment under way, or none.
    const StopwatchSegment *open() const;
    std::optional<Instant> startDate() const;
    /// None while a segment is open.
    std::optional<Instant> endDate() const;

    /// Closes what is open and opens a segment at `date`, or at the end of the last one when that is later.
    void begin(StopwatchSegment::Kind kind, const QString &object, Instant date);
    /// Closes what is open at `date`. A segment without length vanishes.
    void end(Instant date);

    /// The time spent, pauses excluded, and the time paused. An open segment counts up to `now`; without
    /// one it does not count.
    std::chrono::milliseconds cumulativeRunningDuration(Instant now = Instant::min()) const;
    std::chrono::milliseconds pausedDuration(Instant now = Instant::min()) const;

    /// Keeps as much of the beginning of a closed timeline as holds `duration` of running time and drops
    /// what lies behind; all stays when it has no more than that.
    void cut(std::chrono::milliseconds duration);

    QJsonObject toJson() const;
    /// Fails for anything but what toJson() may have written.
    static Result<StopwatchTimeline> fromJson(const QJsonObject &json);

    bool operator==(const StopwatchTimeline &) const = default;

private:
    std::chrono::milliseconds sum(StopwatchSegment::Kind kind, Instant now) const;

    std::vector<StopwatchSegment> m_segments;
};

} // namespace Corvex::Focus
