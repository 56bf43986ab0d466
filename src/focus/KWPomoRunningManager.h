#pragma once

#include "corvexkit/time/RunningTime.h"
#include "focus/FocusMessages.h"
#include "focus/FocusSlices.h"
#include "focus/SecondsTimer.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWPomoSettingsModel.h"

class FocusAssociation;
class FocusJournal;
class FocusModePort;
class FocusRecordQueue;
class OrvaneKit;

/// Runs Pomos and breaks: one phase after the other, each counted down second by second, with what was
/// focused on in the meantime; see docs/focus.md. Tells of itself by the notifications `KWFocusRunning…`. A
/// Pomo that the program takes with it is in the FocusJournal. Main thread.
class KWPomoRunningManager {
public:
    struct Collaborators {
        OrvaneKit &kit;
        CXClock &clock;
        FocusAssociation &association;
        FocusModePort &modes;
        FocusJournal &journal;
        FocusRecordQueue &records;
        FocusPorts ports;
    };
    explicit KWPomoRunningManager(Collaborators collaborators);

    /// Starts a Pomo of the usual length, or goes on with one that is paused.
    void oc_startFocus();
    /// For links and commands: nothing when nobody is signed in, focus is switched off, the stopwatch is not
    /// idle or a Pomo runs. A length below 1 second is the usual one.
    void startFocus(std::int64_t seconds);
    enum class Length { Given, Default };
    /// On `target`, or on what is focused on already when there is none. A Pomo that runs goes on with the
    /// target as a slice of its own, a paused one is resumed; a break is cut short. Nothing happens while
    /// nobody is signed in.
    void startFocus(const std::optional<FocusTarget> &target, std::int64_t seconds, Length length);
    /// Only a Pomo that runs can be paused, only one that is paused goes on.
    void pause();
    void resume();
    /// What is focused on from now on, while a Pomo runs as a slice of its own.
    void switchTarget(const FocusTarget &target);
    /// Makes room for the stopwatch: a Pomo is paused, a break ends.
    void standAside();
    /// Begins the break that waits.
    void startRelaxing();
    /// Gives up the Pomo, which leaves no record, or the break.
    void abandonFocusing();
    /// The person would rather go on: what ran out meanwhile is saved now.
    void restorePomoIfNeeded();
    /// The journal has the Pomo up to now; messages go.
    void applicationWillTerminate();
    /// More than 30 seconds of the phase have run.
    bool shouldConfirmWhenStop() const { return m_countDownDuration - m_currentCountDown > 30; }
    bool shouldBeLongBreaking() const;

    KWPomoRunningState state() const { return m_state; }
    bool isFocusing() const { return m_state == KWPomoRunningState::foucsing; }
    bool isBreaking() const { return (int(m_state) & ~1) == int(KWPomoRunningState::short_relaxing); }
    /// Seconds of the phase, and what is left of them.
    std::int64_t countDownDuration() const { return m_countDownDuration; }
    void setCountDownDuration(std::int64_t seconds);
    std::int64_t currentCountDown() const { return m_currentCountDown; }
    bool isConfirmingToExit() const { return m_confirmingToExitDate.has_value(); }
    /// While a person is asked whether to stop, the time since does not count for what they focus on.
    void setConfirmingToExit(bool isConfirmingToExit);

    std::int64_t autoPomodoroCount() const { return m_autoPomodoroCount; }
    std::int64_t pomosCountForLongBreak() const { return m_pomosCountForLongBreak; }
    Instant pomoStartDate() const { return m_pomoStartDate; }
    Instant pomoEndDate() const { return m_pomoEndDate; }
    const QList<FocusSlice> &focusSlices() const { return m_slices.all(); }
    bool isTimerPaused() const { return m_timmer && m_timmer->isSuspended(); }
    /// Seconds of the settings: minutes, or seconds for trying things out.
    std::int64_t secondsOf(int setting) const;
    KWPomoSettingsModel settings() const;
    /// Focus is not switched off.
    bool isEnabled() const;

    /// One second less.
    void timerStep();

private:
    void observe();
    Instant now() const { return m_time.now(); }
    void setState(KWPomoRunningState state);
    void postCountDown();
    void goIdle(std::int64_t seconds = 0);
    void startFocusing();
    void startTimer();
    void openSlice(KWPomoRunningState state);
    void askWhetherItBelongs();
    void endQuestion();
    void focusCompleted();
    void completePomo(Instant endDate);
    void waitForBreak();
    void prepareForBreaking();
    void relax();
    void finishBreaking();
    void endAfterBreak();
    void tellOfFocusEnd(FocusMessages::Next next);
    void tellOfBreakEnd(FocusMessages::Next next);
    void tell(const FocusMessage &message);
    void countPomo();
    void endChain();
    bool isChainOver() const;
    bool isAutoBreakAllowed() const;
    bool isAutoPomoAllowed() const;
    void saveWhatRanOut();
    void saveSlices(KWPomoStatus status, Instant endDate);
    void keepInJournal();
    void reset();

    void pomoSettingsChanged();
    void userDidSignOut() { reset(); }
    void computerWillSleep();
    void computerDidWake();
    void fastForward(Instant phaseEnd, std::chrono::seconds remainder);
    void goOn(KWPomoRunningState state, std::chrono::seconds length, std::chrono::seconds gone);
    void handleTasksChanged(const StoreChange &change);
    void dataDidChangeOutsideMainApp();
    void forgetTasks(const QStringList &taskIDs);
    void messageActionPressed(const QString &key);

    OrvaneKit &m_kit;
    CXClock &m_clock;
    FocusAssociation &m_association;
    FocusModePort &m_modes;
    FocusJournal &m_journal;
    FocusPorts m_ports;
    FocusRecordQueue &m_records;

    RunningTime m_time;
    KWPomoRunningState m_state = KWPomoRunningState::idle;
    std::int64_t m_currentCountDown = 0;
    std::int64_t m_countDownDuration = 0;
    std::int64_t m_autoPomodoroCount = 0;
    std::int64_t m_pomosCountForLongBreak = 0;
    Instant m_pomoStartDate;
    Instant m_pomoEndDate;
    std::optional<Instant> m_computerSleepDate;
    std::optional<Instant> m_confirmingToExitDate;
    FocusSlices m_slices;
    struct Belonging {
        FocusTarget target;
        Instant date;
    };
    std::optional<Belonging> m_belonging; // asked, and not answered yet
    std::optional<SecondsTimer> m_timmer;

    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
