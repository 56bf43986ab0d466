#pragma once

#include "focus/FocusTargetChoices.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "views/focus/FocusFace.h"

#include <QObject>

#include <optional>

class KWFocusRunningManager;
class KWPomoRunningManager;
class OrvaneKit;

namespace Corvex::Focus {
class Stopwatch;
}

/// What every view of focus shows and does: the page, the popover and the small window share one. Main
/// thread.
class FocusPresenter : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Rooms {
        OrvaneKit &kit;
        KWFocusRunningManager &manager;
        KWPomoRunningManager &pomo;
        const Corvex::Focus::Stopwatch &stopwatch;
    };
    explicit FocusPresenter(Rooms rooms);

    OrvaneKit &kit() { return m_rooms.kit; }
    /// The mode that runs, or ran last.
    KWFocusType mode() const;
    /// A page of the mode was opened: it is the current one, unless the other one runs.
    void chooseMode(KWFocusType mode);
    /// Focus is not switched off.
    bool isEnabled() const;
    /// A Pomo, a break or the stopwatch is on, paused or not.
    bool isRunning() const;

    /// Cheap enough for every second.
    FocusReading reading(KWFocusType mode) const;
    FocusFace face(KWFocusType mode) const;
    /// One of the commands of face(mode); any other does nothing.
    void perform(FocusCommand command, KWFocusType mode);

    const FocusTargetChoice &target() const { return m_target; }
    void setTarget(const FocusTarget &target);
    /// Begins on it, or goes on with it what runs in that mode; nothing while focus is switched off.
    void startOn(const FocusTarget &target, KWFocusType mode);

Q_SIGNALS:
    /// Only the reading is another one.
    void ticked();
    /// The face, the target or its title.
    void changed();
    /// It runs, and was not the one to run before.
    void modeStarted(KWFocusType mode);

private:
    void observe();
    void stateDidChange();
    void readTarget();
    void readTargetAgain();
    FocusFace pomoFace() const;
    FocusFace stopwatchFace() const;
    QString longBreakWords() const;
    void performOnPomo(FocusCommand command);
    void performOnStopwatch(FocusCommand command);

    Rooms m_rooms;
    FocusTargetChoice m_target;
    std::optional<KWFocusType> m_running;
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
