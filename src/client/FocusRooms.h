#pragma once

#include "app/ports/AlertPort.h"
#include "app/ports/LaunchPorts.h"
#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/FocusAssociation.h"
#include "focus/KWFocusRunningManager.h"
#include "focus/KWPomoRunningManager.h"
#include "focus/KWStopwatchConfirmManager.h"
#include "focus/PomoJournal.h"
#include "focus/StopwatchFile.h"
#include "focus/StopwatchTerminator.h"
#include "views/focus/FocusPresenter.h"

/// The engines of focus, put together. Main thread.
class FocusRooms : public FocusCoordinatorPort {
public:
    /// All outlive it.
    FocusRooms(OrvaneKit &kit, CXClock &clock, AlertPort &alerts, FocusPopoverPort &popover);

    FocusPresenter &presenter() { return m_presenter; }
    KWFocusRunningManager &manager() { return m_manager; }
    KWPomoRunningManager &pomo() { return m_pomo; }
    void applicationDidFinishLaunching() override;

private:
    class Questions : public FocusQuestionPort {
    public:
        explicit Questions(AlertPort &alerts) : m_alerts(alerts) {}
        void ask(const FocusQuestion &question, std::function<void(int)> answered) override;
        void askInWindow(const FocusQuestion &question, std::function<void(int)> answered) override;

    private:
        AlertPort &m_alerts;
    };
    class Lengths : public StopwatchConfirmPort {
    public:
        void show(const StopwatchConfirmation &confirmation) override;
        void close() override {}
    };

    Questions m_questions;
    FocusMessagePort m_messages;
    FocusPorts m_ports;
    FocusAssociation m_association;
    PomoJournal m_journal;
    StopwatchFile m_file;
    Corvex::Focus::Stopwatch m_stopwatch;
    KWPomoRunningManager m_pomo;
    KWFocusRunningManager m_manager;
    Lengths m_lengths;
    KWStopwatchConfirmManager m_confirmation;
    StopwatchTerminator m_terminator;
    FocusPresenter m_presenter;
};
