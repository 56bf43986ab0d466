#include "corvexkit/time/RunningTime.h"

#include <algorithm>
#include <utility>

using namespace std::chrono;

RunningTime::RunningTime(const CXClock &clock) : m_clock{clock}, m_anchor{read()} {}

void RunningTime::start()
{
    m_anchor = read();
    m_slept = 0ms;
    // Of a sleep that is under way, only what follows belongs to the new stretch.
    if (m_fellAsleep) m_fellAsleep = m_anchor;
}

Instant RunningTime::now() const
{
    return m_anchor.wall + (m_clock.monotonicNow() - m_anchor.monotonic) + m_slept;
}

void RunningTime::willSleep()
{
    if (!m_fellAsleep) m_fellAsleep = read();
}

void RunningTime::didWake()
{
    const auto fellAsleep = std::exchange(m_fellAsleep, std::nullopt);
    if (!fellAsleep) return;
    const Reading woke = read();
    m_slept += std::max(0ms, (woke.wall - fellAsleep->wall) - (woke.monotonic - fellAsleep->monotonic));
}
