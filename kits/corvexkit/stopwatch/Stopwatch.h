#pragma once

#include "corvexkit/stopwatch/StopwatchSession.h"
#include "corvexkit/time/ClockCall.h"
#include "corvexkit/time/RunningTime.h"

#include <functional>

namespace Corvex::Focus {

class StopwatchStore;

enum class StopwatchState { idle = 0, running = 1, paused = 2 };
/// "idle", "running" or "paused".
QString nameOf(StopwatchState state);

/// What was done; the values from `Stop` on mean that the stopwatch was stopped.
enum class StopwatchAction { Start = 0, Pause = 1, Resume = 2, Stop = 3, AutomaticStop = 4 };
constexpr bool isStop(StopwatchAction action) { return action >= StopwatchAction::Stop; }

/// Times what the time is spent on, in running time: setting the clock does not touch it. It outlives the
/// program: after a restart, of whatever kind, it is as if it had run on, and one that was paused is still
/// paused. A sleep of the computer is a pause; after a long one it stays paused. Main thread.
class Stopwatch {
public:
    /// It stops by itself when it has run so long.
    static constexpr std::chrono::hours automaticStopLength() { return std::chrono::hours{12}; }
    /// A sleep of this length or more leaves it paused.
    static constexpr std::chrono::hours longSleep() { return std::chrono::hours{1}; }

    /// Both outlive it. Call restore() before anything else.
    Stopwatch(CXClock &clock, StopwatchStore &store);

    /// With the timeline of the timing; after a stop, of the one that was stopped. Called when all is done,
    /// so that the stopwatch may be used from within.
    using ActionCallback = std::function<void(StopwatchAction action, const StopwatchTimeline &timeline)>;
    void setActionCallback(ActionCallback callback) { m_onAction = std::move(callback); }
    /// Each time a whole second of running time is full, while running and only then.
    void setTickCallback(std::function<void()> callback) { m_onTick = std::move(callback); }

    /// Takes up what was stored. A timing that has reached its length meanwhile stops there. What cannot be
    /// read is put aside, and the log says so.
    void restore();

    /// Begins to spend time on `object`, which may be empty. Only when idle.
    void start(const QString &object);
    /// Each of these three does nothing in the wrong state.
    void pause();
    void resume();
    void stop();
    /// What the time is spent on from now on; when paused, from when it goes on. Nothing when idle.
    void setObject(const QString &object);

    StopwatchState state() const;
    /// Empty when idle.
    QString object() const { return m_session.object; }
    /// Of the timing under way; zero and empty when idle.
    std::chrono::milliseconds cumulativeRunningDuration() const;
    const StopwatchTimeline &timeline() const { return m_session.timeline; }

    /// The stopped timings that nobody has settled, the oldest first. They are kept over restarts.
    const std::vector<StopwatchTimeline> &stoppedTimelines() const { return m_session.stopped; }
    /// Forgets a stopped timing, once it has been saved or need not be.
    void settle(const StopwatchTimeline &stopped);

    void computerWillSleep();
    void computerDidWake();

private:
    Instant now() const { return m_time.now() + m_shift; }
    void begin(StopwatchSegment::Kind kind);
    void finish(StopwatchAction action);
    bool stopIfTooLong();
    void save();
    void scheduleTick();
    void tick();
    void act(StopwatchAction action);

    CXClock &m_clock;
    StopwatchStore &m_store;
    ActionCallback m_onAction;
    std::function<void()> m_onTick;
    StopwatchSession m_session;
    RunningTime m_time;
    std::chrono::milliseconds m_shift{0}; // from the running time to that of the timing
    std::optional<Instant> m_asleepSince; // while it is paused by a sleep
    ClockCall m_nextTick;
};

} // namespace Corvex::Focus
