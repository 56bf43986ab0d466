#pragma once

#include "app/CrashProtectionAlert.h"
#include "corvexkit/time/CXClock.h"

class KWUserDefaults;

/// Ends a row of launches that crash at once. Each launch counts itself before anything else happens
/// and takes the count back once it has lived five seconds; when three in a row did not, the next one
/// shows an alert first. Main thread.
class KWBootingProtection {
public:
    static constexpr std::chrono::milliseconds healthyAfter{5000};
    static constexpr int tolerated = 3;

    KWBootingProtection(KWUserDefaults &defaults, CXClock &clock, CrashProtectionAlert &alert);

    /// Call first, before any other work of a start. Calls `normalLaunch` before it returns, or hands it
    /// to the alert.
    void applicationDidFinishLaunching(std::function<void()> normalLaunch);
    /// The program ends as it should.
    void applicationWillTerminate();

    /// Launches that did not live five seconds, this one counted until it has.
    int crashCount() const;

private:
    void setCrashCount(int count);

    KWUserDefaults &m_defaults;
    CXClock &m_clock;
    CrashProtectionAlert &m_alert;
    ClockCall m_healthy;
};
