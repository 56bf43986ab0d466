#include "client/FocusRooms.h"

#include "model/OrvaneKit.h"

FocusRooms::FocusRooms(OrvaneKit &kit, CXClock &clock, AlertPort &alerts, FocusPopoverPort &popover)
    : m_questions(alerts)
    , m_ports{m_messages, popover, m_questions}
    , m_association(kit.center())
    , m_journal(kit.defaults())
    , m_file(kit.folders().stopwatch())
    , m_stopwatch(clock, m_file)
    , m_pomo({kit, clock, m_association, m_manager, m_journal, m_ports})
    , m_manager({kit, m_association, m_pomo, m_stopwatch, m_journal, m_ports})
    , m_confirmation(kit.center(), m_lengths, Corvex::Focus::Stopwatch::automaticStopLength())
    , m_terminator(kit, clock, m_stopwatch, m_confirmation)
    , m_presenter({kit, m_manager, m_pomo, m_stopwatch})
{
}

void FocusRooms::applicationDidFinishLaunching()
{
    m_stopwatch.restore();
    m_terminator.applicationDidFinishLaunching();
    m_manager.applicationDidFinishLaunching();
}

void FocusRooms::Questions::ask(const FocusQuestion &question, std::function<void(int)> answered)
{
    m_alerts.show({.message = question.message, .text = question.text, .buttons = question.buttons},
                  std::move(answered));
}

void FocusRooms::Questions::askInWindow(const FocusQuestion &question, std::function<void(int)> answered)
{
    ask(question, std::move(answered));
}

void FocusRooms::Lengths::show(const StopwatchConfirmation &confirmation)
{
    if (confirmation.confirmActionHandler) confirmation.confirmActionHandler();
}
