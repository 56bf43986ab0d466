#pragma once

#include "app/ports/AlertPort.h"
#include "app/ports/LaunchPorts.h"
#include "client/FocusNotifications.h"
#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/FocusAssociation.h"
#include "focus/FocusRecordQueue.h"
#include "focus/KWFocusRunningManager.h"
#include "focus/KWPomoRunningManager.h"
#include "focus/KWStopwatchConfirmManager.h"
#include "focus/StopwatchFile.h"
#include "focus/StopwatchTerminator.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusQuestions.h"
#include "views/focus/KWStopwatchConfirmWindow.h"

/// The engines of focus, put together. Main thread.
class FocusRooms : public FocusCoordinatorPort {
public:
    /// What is beside them; all outlive it.
    struct Surroundings {
        AlertPort &alerts;
        FocusPopoverPort &popover;
        UserNotificationCenterPort &notifications;
        FocusSoundPort &sound;
        std::function<QWidget *()> window;                    ///< the main window, or none
        std::function<void(const QString &token)> openWindow; ///< with an activation token or none
        std::function<void(const QString &sentence)> tellFailure;
    };
    FocusRooms(OrvaneKit &kit, CXClock &clock, Surroundings surroundings);
    /// Writes down what runs, and takes messages back.
    ~FocusRooms() override;

    FocusPresenter &presenter() { return m_presenter; }
    KWFocusRunningManager &manager() { return m_manager; }
    KWPomoRunningManager &pomo() { return m_pomo; }
    void applicationDidFinishLaunching() override;

private:
    FocusQuestions m_questions;
    FocusNotifications m_messages;
    FocusPorts m_ports;
    FocusAssociation m_association;
    FocusJournal m_journal;
    FocusRecordQueue m_records;
    StopwatchFile m_file;
    Corvex::Focus::Stopwatch m_stopwatch;
    KWPomoRunningManager m_pomo;
    KWFocusRunningManager m_manager;
    StopwatchConfirmPresenter m_lengths;
    KWStopwatchConfirmManager m_confirmation;
    StopwatchTerminator m_terminator;
    FocusPresenter m_presenter;
};
