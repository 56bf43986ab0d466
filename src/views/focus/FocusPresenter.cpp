#include "views/focus/FocusPresenter.h"

#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/KWFocusRunningManager.h"
#include "focus/KWPomoRunningManager.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWLocalizedString.h"

#include <algorithm>
#include <array>

using Corvex::Focus::StopwatchState;

FocusPresenter::FocusPresenter(Rooms rooms) : m_rooms(rooms)
{
    observe();
    readTarget();
}

void FocusPresenter::observe()
{
    KWNotificationCenter &center = m_rooms.kit.center();
    m_observations.push_back(
        center.addObserver(KWFocusRunningCountDownChanged, [this](const auto &) { Q_EMIT ticked(); }));
    m_observations.push_back(
        center.addObserver(KWFocusRunningStateChanged, [this](const auto &) { stateDidChange(); }));
    m_observations.push_back(center.addObserver(KWFocusRunningTaskChanged, [this](const auto &) {
        readTarget();
        Q_EMIT changed();
    }));
    for (const QString &name : {KWPomoSettingsChangedNotification, KWSyncDidPullPomoSettingsNotification})
        m_observations.push_back(center.addObserver(name, [this](const auto &) { Q_EMIT changed(); }));
    m_observations.push_back(center.addObserver(KWDataDidChangeOutsideMainAppNotification,
                                                [this](const auto &) { readTargetAgain(); }));
    m_registration = m_rooms.kit.bus().registerEventBus([this](const StoreChange &change) {
        constexpr std::array kinds{RecordKind::Task, RecordKind::Habit, RecordKind::Project};
        if (std::ranges::any_of(kinds, [&](RecordKind each) { return change.touches(each); }))
            readTargetAgain();
    });
}

void FocusPresenter::stateDidChange()
{
    const auto before = std::exchange(m_running, isRunning() ? std::optional{mode()} : std::nullopt);
    if (m_running && m_running != before) Q_EMIT modeStarted(*m_running);
    Q_EMIT changed();
}

void FocusPresenter::readTargetAgain()
{
    if (m_target.target.isNone()) return;
    const FocusTargetChoice before = m_target;
    readTarget();
    if (m_target != before) Q_EMIT changed();
}

void FocusPresenter::readTarget() { m_target = lookOf(m_rooms.manager.target(), m_rooms.kit.context()); }

KWFocusType FocusPresenter::mode() const { return m_rooms.manager.focusType(); }

void FocusPresenter::chooseMode(KWFocusType mode)
{
    const bool isBusy = m_rooms.pomo.state() != KWPomoRunningState::idle || m_rooms.manager.isStopwatchBusy();
    if (!isBusy && mode != this->mode()) m_rooms.manager.setFocusType(mode);
}

bool FocusPresenter::isEnabled() const { return m_rooms.pomo.isEnabled(); }

bool FocusPresenter::isRunning() const { return m_rooms.manager.isRunning(); }

FocusReading FocusPresenter::reading(KWFocusType mode) const
{
    if (mode == KWFocusTypeStopwatch) {
        using namespace std::chrono;
        const auto run = duration_cast<seconds>(m_rooms.stopwatch.cumulativeRunningDuration()).count();
        return {.seconds = run, .share = double(run % 3600) / 3600};
    }
    const KWPomoRunningManager &pomo = m_rooms.pomo;
    const std::int64_t left = std::max<std::int64_t>(0, pomo.currentCountDown());
    const bool isStill =
        pomo.state() == KWPomoRunningState::idle || pomo.state() == KWPomoRunningState::waitingToRelax;
    const double whole = double(std::max<std::int64_t>(1, pomo.countDownDuration()));
    return {.seconds = left, .share = isStill ? 0 : std::min(1.0, double(left) / whole)};
}

FocusFace FocusPresenter::face(KWFocusType mode) const
{
    return mode == KWFocusTypeStopwatch ? stopwatchFace() : pomoFace();
}

FocusFace FocusPresenter::pomoFace() const
{
    using enum FocusCommand;
    using Phase = FocusFace::Phase;
    QString notice;
    if (m_rooms.manager.isStopwatchBusy())
        notice = m_rooms.pomo.state() == KWPomoRunningState::paused
                     ? KWLocalizedString("The stopwatch is on. Going on with the Pomo stops it and keeps its "
                                         "time.")
                     : KWLocalizedString("The stopwatch is on. Starting a Pomo stops it and keeps its time.");
    switch (m_rooms.pomo.state()) {
    case KWPomoRunningState::idle:
        return {Phase::Idle, KWLocalizedString("ready to focus"), notice, {Start}};
    case KWPomoRunningState::foucsing:
        return {Phase::Focusing, longBreakWords(), {}, {Pause, Stop}};
    case KWPomoRunningState::paused:
        return {Phase::Paused, KWLocalizedString("paused"), notice, {Resume, Stop}};
    case KWPomoRunningState::waitingToRelax:
        return {Phase::Waiting, KWLocalizedString("time to relax"), {}, {Relax, Skip, Exit}};
    case KWPomoRunningState::short_relaxing:
        return {Phase::Break, KWLocalizedString("short break"), {}, {Skip, Exit}};
    case KWPomoRunningState::long_relaxing:
        return {Phase::Break, KWLocalizedString("long break"), {}, {Skip, Exit}};
    }
    return {};
}

QString FocusPresenter::longBreakWords() const
{
    const std::int64_t interval = std::max(1, m_rooms.pomo.settings().longBreakInterval);
    const std::int64_t ahead = interval - m_rooms.pomo.pomosCountForLongBreak() % interval;
    if (ahead == 1) return KWLocalizedString("focusing, then a long break");
    return KWLocalizedString("focusing, long break in %1").arg(QLocale{}.toString(qlonglong(ahead)));
}

FocusFace FocusPresenter::stopwatchFace() const
{
    using enum FocusCommand;
    using Phase = FocusFace::Phase;
    const KWPomoRunningState pomo = m_rooms.pomo.state();
    QString notice;
    if (pomo == KWPomoRunningState::foucsing)
        notice = KWLocalizedString("A Pomo is on. Starting the stopwatch pauses it.");
    else if (pomo == KWPomoRunningState::waitingToRelax || m_rooms.pomo.isBreaking())
        notice = KWLocalizedString("Starting the stopwatch ends the break.");
    switch (m_rooms.stopwatch.state()) {
    case StopwatchState::idle:
        return {Phase::Idle, KWLocalizedString("ready to focus"), notice, {Start}};
    case StopwatchState::running:
        return {Phase::Focusing, KWLocalizedString("focusing"), {}, {Pause, Stop}};
    case StopwatchState::paused:
        return {Phase::Paused, KWLocalizedString("paused"), notice, {Resume, Stop}};
    }
    return {};
}

void FocusPresenter::perform(FocusCommand command, KWFocusType mode)
{
    if (!face(mode).commands.contains(command)) return;
    mode == KWFocusTypeStopwatch ? performOnStopwatch(command) : performOnPomo(command);
}

void FocusPresenter::performOnPomo(FocusCommand command)
{
    switch (command) {
    case FocusCommand::Start:
    case FocusCommand::Resume:
    case FocusCommand::Skip:
        return m_rooms.pomo.oc_startFocus();
    case FocusCommand::Pause:
        return m_rooms.pomo.pause();
    case FocusCommand::Stop:
    case FocusCommand::Exit:
        return m_rooms.manager.stopPomo();
    case FocusCommand::Relax:
        return m_rooms.pomo.startRelaxing();
    }
}

void FocusPresenter::performOnStopwatch(FocusCommand command)
{
    switch (command) {
    case FocusCommand::Start:
    case FocusCommand::Resume:
        return m_rooms.manager.startStopWatch();
    case FocusCommand::Pause:
        return m_rooms.manager.pauseStopWatch();
    default:
        return m_rooms.manager.stopStopWatch();
    }
}

void FocusPresenter::setTarget(const FocusTarget &target) { m_rooms.manager.setTarget(target); }

void FocusPresenter::startOn(const FocusTarget &target, KWFocusType mode)
{
    if (!isEnabled()) return;
    if (mode == KWFocusTypeStopwatch) return m_rooms.manager.startStopWatch(target);
    m_rooms.pomo.startFocus(target, 0, KWPomoRunningManager::Length::Default);
}
