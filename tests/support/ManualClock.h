#pragma once

#include "corvexkit/time/CXClock.h"

#include <memory>

/// The instant of a local time such as "2030-03-09 23:59" (or with seconds) in a zone. A text or zone
/// that does not read ends the test program with a message.
Instant at(const char *localTime, const char *zone = "UTC");

/// A clock that a test sets. Time passes only through the calls below, and due calls are made inside
/// them: in time order, each with the clock standing at the moment it was due.
class ManualClock final : public CXClock {
public:
    explicit ManualClock(Instant now, CXTimeZone zone = {});
    /// `ManualClock clock{"2030-03-09 23:59", "Europe/Berlin"};`
    explicit ManualClock(const char *localTime, const char *zone = "UTC");

    ~ManualClock() override;

    Instant now() const override { return m_now; }
    CXTimeZone zone() const override { return m_zone; }
    std::chrono::milliseconds monotonicNow() const override { return m_monotonic; }
    [[nodiscard]] ClockCall callAt(Instant when, std::function<void()> action) override;
    [[nodiscard]] ClockCall callAfter(std::chrono::milliseconds delay, std::function<void()> action) override;

    /// Both clocks go on by `duration`; makes every call that comes due on the way, those included that
    /// a call asks for.
    void advance(std::chrono::milliseconds duration);
    /// advance() up to an instant that is not in the past.
    void advanceTo(Instant when);
    /// The computer sleeps: the wall clock goes on, monotonic time does not, and nothing runs before the
    /// end. What came due on the wall clock runs then.
    void sleep(std::chrono::milliseconds duration);
    /// Somebody sets the wall clock, forward or back. Calls due at `now` or before run at once.
    void setNow(Instant now);
    void setZone(CXTimeZone zone) { m_zone = zone; }
    void setZone(const char *identifier);

    /// Whether any call is pending.
    bool isIdle() const;

private:
    Instant m_now;
    std::chrono::milliseconds m_monotonic{0};
    CXTimeZone m_zone;
    std::shared_ptr<CallQueue> m_calls;
};
