#pragma once

#include "corvexkit/time/CXClock.h"

/// A clock that stands at a given moment, for `--now` and for titles that bring their own. Commands run
/// no calls, so it makes none.
class FixedClock : public CXClock {
public:
    FixedClock(Instant now, CXTimeZone zone) : m_now(now), m_zone(std::move(zone)) {}

    void setNow(Instant now) { m_now = now; }

    Instant now() const override { return m_now; }
    CXTimeZone zone() const override { return m_zone; }
    std::chrono::milliseconds monotonicNow() const override { return m_now.time_since_epoch(); }
    ClockCall callAt(Instant, std::function<void()>) override { return {}; }
    ClockCall callAfter(std::chrono::milliseconds, std::function<void()>) override { return {}; }

private:
    Instant m_now;
    CXTimeZone m_zone;
};
