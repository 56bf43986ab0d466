#include "focus/SecondsTimer.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

SecondsTimer::SecondsTimer(CXClock &clock, std::function<void()> action)
    : m_clock(clock), m_action(std::move(action)), m_due(clock.monotonicNow() + 1s)
{
    schedule();
}

void SecondsTimer::suspend()
{
    if (isSuspended()) return;
    m_remaining = std::max(m_due - m_clock.monotonicNow(), 0ms);
    m_call.cancel();
}

void SecondsTimer::resume()
{
    if (!isSuspended()) return;
    m_due = m_clock.monotonicNow() + *std::exchange(m_remaining, std::nullopt);
    schedule();
}

void SecondsTimer::schedule()
{
    m_call = m_clock.callAfter(std::max(m_due - m_clock.monotonicNow(), 0ms), [this] { fire(); });
}

// The action may end this timer.
void SecondsTimer::fire()
{
    m_due += 1s;
    schedule();
    const auto action = m_action;
    action();
}
