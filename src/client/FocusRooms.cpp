#include "client/FocusRooms.h"

#include "model/OrvaneKit.h"

FocusRooms::FocusRooms(OrvaneKit &kit, CXClock &clock, Surroundings with)
    : m_questions(with.alerts, std::move(with.window))
    , m_messages(with.notifications, with.sound, std::move(with.openWindow))
    , m_ports{m_messages, with.popover, m_questions}
    , m_association(kit.center())
    , m_journal(kit.defaults())
    , m_records(kit, m_journal)
    , m_file(kit.folders().stopwatch())
    , m_stopwatch(clock, m_file)
    , m_pomo({kit, clock, m_association, m_manager, m_journal, m_records, m_ports})
    , m_manager({kit, m_association, m_pomo, m_stopwatch, m_journal, m_records, m_ports})
    , m_confirmation(kit.center(), m_lengths, Corvex::Focus::Stopwatch::automaticStopLength())
    , m_terminator(kit, clock, m_stopwatch, m_confirmation, m_records)
    , m_presenter({kit, m_manager, m_pomo, m_stopwatch})
{
    m_records.onFailure = std::move(with.tellFailure);
}

FocusRooms::~FocusRooms() { m_pomo.applicationWillTerminate(); }

void FocusRooms::applicationDidFinishLaunching()
{
    m_stopwatch.restore();
    m_terminator.applicationDidFinishLaunching();
    m_manager.applicationDidFinishLaunching();
}
