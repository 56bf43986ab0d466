#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "corvexkit/time/ClockCall.h"

#include <functional>

/// The one source of time: what time it is, in which zone, and calls made when a time has come. The
/// product takes a `CXClock &` wherever it needs any of these. now(), zone() and monotonicNow() may be
/// asked on any thread; calls are asked for and made on the thread that owns the clock, the main one.
class CXClock {
public:
    CXClock() = default;
    CXClock(const CXClock &) = delete;
    CXClock &operator=(const CXClock &) = delete;
    virtual ~CXClock() = default;

    virtual Instant now() const = 0;
    virtual CXTimeZone zone() const = 0;

    /// Time since some fixed point, which setting the clock does not move. Stands still during sleep.
    virtual std::chrono::milliseconds monotonicNow() const = 0;

    /// Calls `action` once when the wall clock has reached `when`: later when the clock is set back,
    /// at once (from the event loop, never from inside callAt) when it is set past `when`, when the
    /// computer wakes after `when`, or when `when` has passed already. Due calls run in time order,
    /// those of one moment in the order they were asked for. Dropping the handle cancels the call.
    [[nodiscard]] virtual ClockCall callAt(Instant when, std::function<void()> action) = 0;

    /// Calls `action` once when `delay` of monotonic time has gone by; otherwise as callAt().
    [[nodiscard]] virtual ClockCall callAfter(std::chrono::milliseconds delay,
                                              std::function<void()> action) = 0;

    LocalTime localNow() const { return zone().toLocal(now()); }
    Day today() const { return zone().dayOf(now()); }
};
