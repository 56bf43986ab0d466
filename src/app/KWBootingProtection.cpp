#include "app/KWBootingProtection.h"

#include "corvexkit/log/CXLog.h"
#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger bootLog{u"launch"};
// A broken preferences file may hold any number.
constexpr int highestCount = 1'000'000;

} // namespace

KWBootingProtection::KWBootingProtection(KWUserDefaults &defaults, CXClock &clock,
                                         CrashProtectionAlert &alert)
    : m_defaults(defaults), m_clock(clock), m_alert(alert)
{
}

void KWBootingProtection::applicationDidFinishLaunching(std::function<void()> normalLaunch)
{
    const int earlierCrashes = crashCount();
    setCrashCount(earlierCrashes + 1);

    m_healthy = m_clock.callAfter(healthyAfter, [this] { setCrashCount(0); });

    if (earlierCrashes < tolerated) return normalLaunch();

    bootLog.warning(u"%1 launches ended within five seconds"_s.arg(earlierCrashes));
    m_alert.runModal(KWLocalizedString("Crash Protection Title"),
                     KWLocalizedString("Crash Protection Message"), std::move(normalLaunch));
}

void KWBootingProtection::applicationWillTerminate()
{
    m_healthy.cancel();
    setCrashCount(0);
}

int KWBootingProtection::crashCount() const
{
    return std::clamp(m_defaults.value(Settings::crashCount), 0, highestCount);
}

void KWBootingProtection::setCrashCount(int count)
{
    m_defaults.set(Settings::crashCount, count);
    // At once: the next moment may be the crash.
    m_defaults.synchronise();
}
