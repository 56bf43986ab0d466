#include "focus/KWFocusRunningManager.h"

#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/FocusAssociation.h"
#include "focus/FocusMessages.h"
#include "focus/FocusRecordQueue.h"
#include "focus/FocusTargetTitle.h"
#include "focus/KWPomoRunningManager.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"

using Corvex::Focus::StopwatchState;

KWFocusRunningManager::KWFocusRunningManager(Collaborators with)
    : m_kit(with.kit)
    , m_association(with.association)
    , m_pomo(with.pomo)
    , m_stopwatch(with.stopwatch)
    , m_journal(with.journal)
    , m_records(with.records)
    , m_ports(with.ports)
{
    m_observations.push_back(
        m_kit.center().addObserver(KWUserDidSignOutNotification, [this](const auto &) { userDidSignOut(); }));
    m_observations.push_back(m_kit.center().addObserver(KWUserDidSignInNotification,
                                                        [this](const auto &) { askAboutLeftPomo(); }));
    m_observations.push_back(m_kit.center().addObserver(KWDataDidChangeOutsideMainAppNotification,
                                                        [this](const auto &) { clearTargetIfGone(); }));
    m_registration = m_kit.bus().registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::Task) || change.touches(RecordKind::Habit)) clearTargetIfGone();
    });
}

void KWFocusRunningManager::applicationDidFinishLaunching()
{
    if (isStopwatchBusy()) m_association.setObject(FocusTarget::fromText(m_stopwatch.object()));
    m_records.storeWaiting();
    askAboutLeftPomo();
}

// One after the other. Told apart by the user: another account is not asked.
void KWFocusRunningManager::askAboutLeftPomo()
{
    if (m_isAskingAboutLeftPomo) return;
    const QList<FocusJournal::Session> left = m_journal.left();
    for (const FocusJournal::Session &each : left) {
        const FocusRecord &record = each.record;
        if (each.userID != m_kit.account().currentUserID()) continue;
        const auto focused = record.endDate - record.startDate - pauseOf(record.stretches);
        if (focused < FocusLimits::minimumFocus || FocusRecordWriter{m_kit}.isStored(record)) {
            m_journal.remove(each);
            continue;
        }
        m_isAskingAboutLeftPomo = true;
        m_ports.questions.ask(
            FocusMessages::leftPomo(std::chrono::round<std::chrono::minutes>(focused)),
            [this, each](int button) { settle(each, button == 0 ? LeftPomo::Keep : LeftPomo::Drop); });
        return;
    }
}

void KWFocusRunningManager::settle(const FocusJournal::Session &pomo, LeftPomo choice)
{
    m_isAskingAboutLeftPomo = false;
    if (choice == LeftPomo::Keep)
        (void)m_records.store(pomo);
    else
        m_journal.remove(pomo);
    askAboutLeftPomo();
}

KWFocusType KWFocusRunningManager::focusType() const
{
    const int stored = m_kit.defaults().value(Settings::currentFocusType);
    return stored == KWFocusTypeStopwatch ? KWFocusTypeStopwatch : KWFocusTypePomo;
}

void KWFocusRunningManager::setFocusType(KWFocusType type)
{
    const bool leavesStopwatch = type == KWFocusTypePomo && focusType() == KWFocusTypeStopwatch;
    if (leavesStopwatch && isStopwatchBusy()) m_stopwatch.stop();
    m_kit.defaults().set(Settings::currentFocusType, int(type));
    m_kit.defaults().synchronise();
    m_ports.messages.remove();
}

const FocusTarget &KWFocusRunningManager::target() const { return m_association.object(); }

void KWFocusRunningManager::setTarget(const FocusTarget &target)
{
    if (isPomoFocusing()) return m_pomo.switchTarget(target);
    m_association.setObject(target);
    if (isStopwatchBusy()) m_stopwatch.setObject(target.text());
}

void KWFocusRunningManager::startStopWatch(const std::optional<FocusTarget> &target)
{
    m_ports.popover.showStopwatchPage();
    m_pomo.standAside();
    setFocusType(KWFocusTypeStopwatch);
    if (target) setTarget(*target);
    if (m_stopwatch.state() == StopwatchState::idle)
        m_stopwatch.start(m_association.object().text());
    else
        m_stopwatch.resume();
}

void KWFocusRunningManager::pauseStopWatch() { m_stopwatch.pause(); }

void KWFocusRunningManager::resumeStopWatch() { m_stopwatch.resume(); }

void KWFocusRunningManager::stopStopWatch() { m_stopwatch.stop(); }

void KWFocusRunningManager::startOrAbandonPomo()
{
    if (!m_kit.account().isSignedIn() || !m_pomo.isEnabled() || isStopwatchBusy()) return;
    if (!m_pomo.isFocusing()) {
        const bool goesOn = m_pomo.state() == KWPomoRunningState::paused;
        m_pomo.oc_startFocus();
        if (!goesOn && !m_ports.popover.isOpen()) m_ports.popover.showStarted();
        return;
    }
    stopPomo();
}

void KWFocusRunningManager::stopPomo()
{
    if (!m_pomo.isFocusing() && m_pomo.state() != KWPomoRunningState::paused) return m_pomo.abandonFocusing();
    if (m_pomo.isConfirmingToExit()) return;
    if (!m_pomo.shouldConfirmWhenStop()) {
        m_pomo.abandonFocusing();
        m_ports.popover.dismiss();
        return;
    }
    m_pomo.setConfirmingToExit(true);
    m_ports.questions.ask(FocusMessages::abandonment(), [this](int button) {
        if (!m_pomo.isConfirmingToExit()) return; // signed out meanwhile
        if (button == 0)
            m_pomo.abandonFocusing();
        else
            m_pomo.restorePomoIfNeeded();
        m_ports.popover.dismiss();
    });
}

bool KWFocusRunningManager::isPomoRunning() const
{
    return focusType() == KWFocusTypePomo && m_pomo.state() != KWPomoRunningState::idle;
}

bool KWFocusRunningManager::isStopWatchRunning() const
{
    return focusType() == KWFocusTypeStopwatch && isStopwatchBusy();
}

bool KWFocusRunningManager::isPomoFocusing() const
{
    return focusType() == KWFocusTypePomo && m_pomo.isFocusing();
}

bool KWFocusRunningManager::isPomoPaused() const
{
    return focusType() == KWFocusTypePomo && m_pomo.state() == KWPomoRunningState::paused;
}

bool KWFocusRunningManager::isStopWatchFocusing() const
{
    return focusType() == KWFocusTypeStopwatch && m_stopwatch.state() == StopwatchState::running;
}

double KWFocusRunningManager::currentDuration() const
{
    if (focusType() == KWFocusTypePomo) return double(m_pomo.currentCountDown());
    return std::chrono::duration<double>{m_stopwatch.cumulativeRunningDuration()}.count();
}

bool KWFocusRunningManager::isStopwatchBusy() const { return m_stopwatch.state() != StopwatchState::idle; }

// The engine of Pomos resets itself.
void KWFocusRunningManager::userDidSignOut()
{
    m_stopwatch.stop();
    m_association.setObject({});
}

void KWFocusRunningManager::clearTargetIfGone()
{
    if (!target().isNone() && !exists(target(), m_kit.context())) setTarget({});
}
