#pragma once

#include "corvexkit/stopwatch/Stopwatch.h"
#include "model/events/KWNotificationCenter.h"

#include <vector>

class FocusRecordQueue;
class KWStopwatchConfirmManager;
class OrvaneKit;

/// The program's answer to the stopwatch: tells that it ticks and what was done with it, and stores what was
/// timed. A long timing waits until its length was confirmed: it is kept by the stopwatch and taken up at the
/// next start. Main thread.
class StopwatchTerminator {
public:
    /// All of them outlive it.
    StopwatchTerminator(OrvaneKit &kit, CXClock &clock, Corvex::Focus::Stopwatch &stopwatch,
                        KWStopwatchConfirmManager &confirmation, FocusRecordQueue &records);
    ~StopwatchTerminator();

    /// Registers the callbacks, follows the computer's sleep, and soon takes up what was stopped and not
    /// stored before, as it does whenever somebody signs in.
    void applicationDidFinishLaunching();

private:
    using Timeline = Corvex::Focus::StopwatchTimeline;

    void handleAction(Corvex::Focus::StopwatchAction action);
    void takeUpWhatIsLeftSoon();
    void storeStopped();
    void terminate(const Timeline &stopped);
    void ask(const Timeline &stopped);
    void save(const Timeline &stopped, const Timeline &confirmed);
    std::chrono::seconds threshold() const;

    OrvaneKit &m_kit;
    CXClock &m_clock;
    Corvex::Focus::Stopwatch &m_stopwatch;
    KWStopwatchConfirmManager &m_confirmation;
    FocusRecordQueue &m_records;
    std::vector<Timeline> m_asked; // those that a person need not be asked for again before the next start
    ClockCall m_takeUp;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
