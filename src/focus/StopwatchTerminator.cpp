#include "focus/StopwatchTerminator.h"

#include "corvexkit/log/CXLog.h"
#include "focus/FocusLimits.h"
#include "focus/KWStopwatchConfirmManager.h"
#include "focus/StopwatchDataProcessor.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"

#include <algorithm>

using Corvex::Focus::Stopwatch;
using Corvex::Focus::StopwatchAction;
using namespace std::chrono;

namespace {

constexpr CXLogger terminatorLog{u"focus"};

// A longer timing is confirmed first.
constexpr seconds confirmedFrom = 1h;
constexpr seconds acceleratedConfirmedFrom = 4min;

double inSeconds(milliseconds length) { return duration<double>{length}.count(); }

} // namespace

StopwatchTerminator::StopwatchTerminator(OrvaneKit &kit, CXClock &clock, Stopwatch &stopwatch,
                                         KWStopwatchConfirmManager &confirmation, FocusRecordQueue &records)
    : m_kit{kit}, m_clock{clock}, m_stopwatch{stopwatch}, m_confirmation{confirmation}, m_records{records}
{
}

StopwatchTerminator::~StopwatchTerminator()
{
    m_stopwatch.setActionCallback({});
    m_stopwatch.setTickCallback({});
    m_confirmation.onClosed = {};
}

void StopwatchTerminator::applicationDidFinishLaunching()
{
    m_stopwatch.setActionCallback([this](StopwatchAction action, const Timeline &) { handleAction(action); });
    m_stopwatch.setTickCallback([this] { m_kit.center().post(KWFocusRunningCountDownChanged); });
    m_confirmation.onClosed = [this] { storeStopped(); };
    const auto on = [this](const QString &name, auto reaction) {
        m_observations.push_back(m_kit.center().addObserver(name, [reaction](const auto &) { reaction(); }));
    };
    on(WorkspaceWillSleepNotification, [this] { m_stopwatch.computerWillSleep(); });
    on(WorkspaceDidWakeNotification, [this] { m_stopwatch.computerDidWake(); });
    on(KWUserDidSignInNotification, [this] { takeUpWhatIsLeftSoon(); });
    takeUpWhatIsLeftSoon();
}

void StopwatchTerminator::handleAction(StopwatchAction action)
{
    m_kit.center().post(KWFocusRunningStateChanged);
    if (isStop(action)) storeStopped();
}

// After the windows of a start are there, so that it asks in front of them.
void StopwatchTerminator::takeUpWhatIsLeftSoon()
{
    m_takeUp = m_clock.callAfter(0ms, [this] {
        m_asked.clear();
        storeStopped();
    });
}

void StopwatchTerminator::storeStopped()
{
    // Kept until somebody signs in to whom it can belong.
    if (!m_kit.account().isSignedIn()) return;
    const std::vector<Timeline> stopped = m_stopwatch.stoppedTimelines();
    for (const Timeline &each : stopped)
        terminate(each);
}

void StopwatchTerminator::terminate(const Timeline &stopped)
{
    const milliseconds length = stopped.cumulativeRunningDuration();
    if (length < FocusLimits::minimumFocus)
        m_stopwatch.settle(stopped);
    else if (length > threshold())
        ask(stopped);
    else
        save(stopped, stopped);
}

void StopwatchTerminator::ask(const Timeline &stopped)
{
    if (m_confirmation.isConfirming() || std::ranges::find(m_asked, stopped) != m_asked.end()) return;
    m_asked.push_back(stopped);
    m_confirmation.show(inSeconds(stopped.cumulativeRunningDuration()),
                        [this, stopped](double confirmed, double original) {
                            Timeline timeline = stopped;
                            if (confirmed < original)
                                timeline.cut(round<milliseconds>(duration<double>{confirmed}));
                            save(stopped, timeline);
                        });
}

void StopwatchTerminator::save(const Timeline &stopped, const Timeline &confirmed)
{
    const Result<void> saved = StopwatchDataProcessor{m_kit, m_records}.saveStopwatch(confirmed);
    if (saved) return m_stopwatch.settle(stopped);
    terminatorLog.warning(saved.error().sentence);
}

seconds StopwatchTerminator::threshold() const
{
    const bool isAccelerated = m_kit.defaults().value(Settings::developerAcceleration);
    return isAccelerated ? acceleratedConfirmedFrom : confirmedFrom;
}
