#pragma once

#include "corvexkit/time/CXClock.h"

#include <atomic>
#include <memory>
#include <optional>

/// The computer's clock. Pending calls are kept by two kernel timers, one on the wall clock and one on
/// monotonic time; with no call due nothing wakes up. Calls run from the Qt event loop of the thread
/// that asks for them, nested loops included; the first one needs an application object.
class SystemClock final : public CXClock {
public:
    /// `zone`: a zone to use in place of the system's, for the life of this clock.
    explicit SystemClock(std::optional<CXTimeZone> zone = std::nullopt);
    ~SystemClock() override;

    Instant now() const override;
    CXTimeZone zone() const override { return m_zone; }
    std::chrono::milliseconds monotonicNow() const override;
    [[nodiscard]] ClockCall callAt(Instant when, std::function<void()> action) override;
    [[nodiscard]] ClockCall callAfter(std::chrono::milliseconds delay, std::function<void()> action) override;

    /// Reads the system's zone again; true when it is another one now. Never with a zone of its own.
    bool refreshZone();

private:
    class KernelTimer;

    void arm();
    void runDue();

    std::atomic<CXTimeZone> m_zone;
    const bool m_followsSystemZone;
    std::shared_ptr<CallQueue> m_calls;
    std::unique_ptr<KernelTimer> m_wallTimer;
    std::unique_ptr<KernelTimer> m_monotonicTimer;
};
