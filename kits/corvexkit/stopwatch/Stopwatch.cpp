#include "corvexkit/stopwatch/Stopwatch.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/stopwatch/StopwatchStore.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace Corvex::Focus {

namespace {

constexpr CXLogger stopwatchLog{u"stopwatch"};

// A crash loses no more than the knowledge that it ran so long before.
constexpr minutes savingInterval{1};

} // namespace

QString nameOf(StopwatchState state)
{
    const std::array names{u"idle"_s, u"running"_s, u"paused"_s};
    return names[std::size_t(state)];
}

Stopwatch::Stopwatch(CXClock &clock, StopwatchStore &store) : m_clock{clock}, m_store{store}, m_time{clock} {}

void Stopwatch::restore()
{
    const Result<QString> text = m_store.load();
    if (!text) return stopwatchLog.warning(text.error().sentence);
    if (text->isEmpty()) return;
    auto session = StopwatchSession::fromText(*text);
    if (!session) {
        stopwatchLog.warning(u"What was kept of the stopwatch is damaged and put aside. "_s +
                             session.error().sentence);
        if (const auto aside = m_store.putAside(); !aside) stopwatchLog.warning(aside.error().sentence);
        return;
    }
    m_session = *std::move(session);
    m_time.start();
    // The wall clock alone knows how long nobody looked; one that was set back meanwhile tells nothing.
    const milliseconds away = std::max(0ms, m_time.now() - m_session.wallClock);
    m_shift = m_session.date + away - m_time.now();
    if (stopIfTooLong()) return;
    scheduleTick();
}

StopwatchState Stopwatch::state() const
{
    const StopwatchSegment *open = m_session.timeline.open();
    if (!open) return StopwatchState::idle;
    return open->isRunning() ? StopwatchState::running : StopwatchState::paused;
}

milliseconds Stopwatch::cumulativeRunningDuration() const
{
    return m_session.timeline.cumulativeRunningDuration(now());
}

void Stopwatch::start(const QString &object)
{
    if (state() != StopwatchState::idle) return;
    m_time.start();
    m_shift = 0ms;
    m_session.object = object;
    begin(StopwatchSegment::Kind::Running);
    act(StopwatchAction::Start);
}

void Stopwatch::pause()
{
    if (state() != StopwatchState::running || stopIfTooLong()) return;
    begin(StopwatchSegment::Kind::Paused);
    act(StopwatchAction::Pause);
}

void Stopwatch::resume()
{
    if (state() != StopwatchState::paused) return;
    m_asleepSince.reset();
    begin(StopwatchSegment::Kind::Running);
    act(StopwatchAction::Resume);
}

void Stopwatch::stop()
{
    if (state() != StopwatchState::idle) finish(StopwatchAction::Stop);
}

void Stopwatch::setObject(const QString &object)
{
    if (state() == StopwatchState::idle || object == m_session.object) return;
    m_session.object = object;
    if (state() == StopwatchState::running)
        begin(StopwatchSegment::Kind::Running);
    else
        save();
}

void Stopwatch::settle(const StopwatchTimeline &stopped)
{
    const auto found = std::find(m_session.stopped.begin(), m_session.stopped.end(), stopped);
    if (found == m_session.stopped.end()) return;
    m_session.stopped.erase(found);
    save();
}

void Stopwatch::computerWillSleep()
{
    if (state() == StopwatchState::running) {
        pause();
        if (state() == StopwatchState::paused) m_asleepSince = now();
    }
    m_time.willSleep();
}

void Stopwatch::computerDidWake()
{
    m_time.didWake();
    const auto asleepSince = std::exchange(m_asleepSince, std::nullopt);
    if (asleepSince && now() - *asleepSince < longSleep()) resume();
}

void Stopwatch::begin(StopwatchSegment::Kind kind)
{
    const bool isRunning = kind == StopwatchSegment::Kind::Running;
    m_session.timeline.begin(kind, isRunning ? m_session.object : QString{}, now());
    save();
    scheduleTick();
}

void Stopwatch::finish(StopwatchAction action)
{
    StopwatchTimeline stopped = std::exchange(m_session.timeline, {});
    stopped.end(now());
    stopped.cut(automaticStopLength());
    m_session.object.clear();
    m_asleepSince.reset();
    m_nextTick.cancel();
    if (stopped.cumulativeRunningDuration() > 0ms) m_session.stopped.push_back(stopped);
    save();
    if (m_onAction) m_onAction(action, stopped);
}

// A timing that was not looked after for a while ended when its length was reached.
bool Stopwatch::stopIfTooLong()
{
    if (cumulativeRunningDuration() < automaticStopLength()) return false;
    finish(StopwatchAction::AutomaticStop);
    return true;
}

void Stopwatch::save()
{
    m_session.date = now();
    m_session.wallClock = m_clock.now();
    const Result<void> saved = m_session.isEmpty() ? m_store.clear() : m_store.save(m_session.toText());
    if (!saved) stopwatchLog.warning(saved.error().sentence);
}

void Stopwatch::scheduleTick()
{
    m_nextTick.cancel();
    if (state() != StopwatchState::running) return;
    const milliseconds sinceFullSecond = cumulativeRunningDuration() % 1s;
    m_nextTick = m_clock.callAfter(1s - sinceFullSecond, [this] { tick(); });
}

void Stopwatch::tick()
{
    if (stopIfTooLong()) return;
    if (now() - m_session.date >= savingInterval) save();
    scheduleTick();
    if (m_onTick) m_onTick();
}

void Stopwatch::act(StopwatchAction action)
{
    if (m_onAction) m_onAction(action, StopwatchTimeline{m_session.timeline});
}

} // namespace Corvex::Focus
