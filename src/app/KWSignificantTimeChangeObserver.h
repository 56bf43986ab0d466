#pragma once

#include "app/ports/AlertPort.h"
#include "app/ports/LaunchPorts.h"
#include "app/ports/RelaunchPort.h"
#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/KWNotificationCenter.h"
#include "model/sync/KWSyncManager.h"

#include <functional>
#include <memory>

class KWAccountManager;
class KWCoreDataManager;
class KWUserDefaults;

/// Keeps dates without a time, and times that follow the wall clock, where they stand when the zone
/// changes: at the launch and whenever the system's zone becomes another one, it compares that zone with
/// the one of the last check. Where their offsets differ now, every such task and item is adapted in one
/// save in the background; if that changed anything, the program asks to be restarted, and after the
/// restart whether tasks shall have a zone of their own. Main thread.
class KWSignificantTimeChangeObserver final : public SignificantTimeChangePort {
public:
    struct Collaborators {
        CXClock &clock;
        KWCoreDataManager &manager;
        KWAccountManager &account;
        KWUserDefaults &defaults;
        KWNotificationCenter &center;
        KWSyncManager &sync;
        AlertPort &alerts;
        RelaunchPort &relaunch;
    };
    explicit KWSignificantTimeChangeObserver(const Collaborators &collaborators);

    /// Checks, and from now on observes SystemTimeZoneDidChangeNotification.
    void applicationDidFinishLaunching() override;
    /// The clock has the new zone already. While a save runs, the check waits for its end.
    void systemTimeZoneDidChange();

    /// The zone of the last check. Nothing before the first one, and when what is kept names no zone.
    std::optional<CXTimeZone> lastLocalTimeZone() const;

    /// Whether dates are just being adapted, in the background.
    bool isAdapting() const { return m_isAdapting; }
    /// Called when they are, or could not be.
    std::function<void()> onDidAdapt;

private:
    /// What the next check adapts from: the zone of the last check, or the one before a save that failed.
    std::optional<CXTimeZone> zoneOfDates() const;
    void adaptFrom(const CXTimeZone &last);
    void didAdapt(const CXTimeZone &last, const CXTimeZone &zone, const Result<void> &saved, int changed);
    void askToRestart();
    void askAboutOptionIfSwitched();
    void enableTimeZoneOption();
    void keepZone(const CXTimeZone &zone);

    Collaborators m_with;
    KWNotificationCenter::Observation m_observation;
    bool m_isAdapting = false;
    bool m_isCheckDue = false; // the zone changed while a save ran
    bool m_isAsking = false;
    std::shared_ptr<int> m_life = std::make_shared<int>(); // an answer that outlives it is dropped
};
