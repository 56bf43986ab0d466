#pragma once

#include "focus/FocusJournal.h"
#include "focus/FocusModePort.h"
#include "focus/FocusPorts.h"
#include "focus/FocusTarget.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"

#include <optional>

class FocusAssociation;
class FocusRecordQueue;
class KWPomoRunningManager;
class OrvaneKit;

namespace Corvex::Focus {
class Stopwatch;
}

/// Knows which mode of focus is the current one, Pomo or stopwatch, and answers for it. The mode that is not
/// current always reads as not running. Main thread.
class KWFocusRunningManager : public FocusModePort {
public:
    struct Collaborators {
        OrvaneKit &kit;
        FocusAssociation &association;
        KWPomoRunningManager &pomo;
        Corvex::Focus::Stopwatch &stopwatch;
        FocusJournal &journal;
        FocusRecordQueue &records;
        FocusPorts ports;
    };
    explicit KWFocusRunningManager(Collaborators collaborators);

    /// Stores what earlier runs could not, and asks what is to become of a Pomo that one took with it. The
    /// stopwatch has been restored.
    void applicationDidFinishLaunching();

    KWFocusType focusType() const;
    /// A stopwatch that is not idle is stopped when the type becomes that of Pomos.
    void setFocusType(KWFocusType type) override;

    const FocusTarget &target() const;
    /// What is focused on from now on: a Pomo or stopwatch that runs goes on with it.
    void setTarget(const FocusTarget &target);

    /// Makes the stopwatch the current type and starts it, or goes on with one that is paused. A Pomo that
    /// runs is paused by that, a break ends.
    void startStopWatch(const std::optional<FocusTarget> &target = std::nullopt);
    void pauseStopWatch();
    void resumeStopWatch();
    void stopStopWatch();

    /// The command of the menu: begins a Pomo, or gives up the one that runs, after a question when it has
    /// gone on for a while. Nothing when nobody is signed in, focus is switched off or the stopwatch is busy.
    void startOrAbandonPomo();
    /// Gives up the Pomo, paused or not, in the same way; ends a break at once.
    void stopPomo();

    bool isPomoRunning() const;
    bool isStopWatchRunning() const;
    bool isRunning() const { return isPomoRunning() || isStopWatchRunning(); }
    bool isPomoFocusing() const;
    bool isPomoPaused() const;
    bool isStopWatchFocusing() const;
    bool isFocusing() const { return isPomoFocusing() || isStopWatchFocusing(); }
    /// Seconds: what is left of a Pomo, or what the stopwatch has run.
    double currentDuration() const;

    bool isStopwatchBusy() const override;

private:
    void userDidSignOut();
    void clearTargetIfGone();
    void askAboutLeftPomo();
    enum class LeftPomo { Keep, Drop };
    void settle(const FocusJournal::Session &pomo, LeftPomo choice);

    OrvaneKit &m_kit;
    FocusAssociation &m_association;
    KWPomoRunningManager &m_pomo;
    Corvex::Focus::Stopwatch &m_stopwatch;
    FocusJournal &m_journal;
    FocusRecordQueue &m_records;
    FocusPorts m_ports;
    bool m_isAskingAboutLeftPomo = false;
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
