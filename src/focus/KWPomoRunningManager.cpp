#include "focus/KWPomoRunningManager.h"

#include "corvexkit/log/CXLog.h"
#include "focus/FocusAssociation.h"
#include "focus/FocusJournal.h"
#include "focus/FocusMessages.h"
#include "focus/FocusModePort.h"
#include "focus/FocusTargetTitle.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWPomoSettings.h"
#include "model/settings/KWPomoSettingsManager.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr CXLogger pomoLog{u"focus"};

/// After so long without a Pomo the long break is counted afresh.
constexpr std::chrono::seconds longestPauseOfCount{3600};
/// How often the running Pomo is written down.
constexpr std::int64_t secondsToJournal = 60;

} // namespace

KWPomoRunningManager::KWPomoRunningManager(Collaborators with)
    : m_kit(with.kit)
    , m_clock(with.clock)
    , m_association(with.association)
    , m_modes(with.modes)
    , m_journal(with.journal)
    , m_ports(with.ports)
    , m_records(with.records)
    , m_time(with.clock)
    , m_pomoStartDate(with.clock.now())
    , m_pomoEndDate(with.clock.now())
{
    m_countDownDuration = m_currentCountDown = secondsOf(settings().pomoDuration);
    m_ports.messages.onAction = [this](const QString &key) { messageActionPressed(key); };
    observe();
}

void KWPomoRunningManager::observe()
{
    const auto on = [this](const QString &name, void (KWPomoRunningManager::*reaction)()) {
        m_observations.push_back(
            m_kit.center().addObserver(name, [this, reaction](const auto &) { (this->*reaction)(); }));
    };
    on(KWPomoSettingsChangedNotification, &KWPomoRunningManager::pomoSettingsChanged);
    on(KWSyncDidPullPomoSettingsNotification, &KWPomoRunningManager::pomoSettingsChanged);
    // Another account has other lengths.
    on(KWUserDidSignInNotification, &KWPomoRunningManager::pomoSettingsChanged);
    on(KWUserDidSignOutNotification, &KWPomoRunningManager::userDidSignOut);
    on(WorkspaceWillSleepNotification, &KWPomoRunningManager::computerWillSleep);
    on(WorkspaceDidWakeNotification, &KWPomoRunningManager::computerDidWake);
    on(KWDataDidChangeOutsideMainAppNotification, &KWPomoRunningManager::dataDidChangeOutsideMainApp);
    m_registration =
        m_kit.bus().registerEventBus([this](const StoreChange &change) { handleTasksChanged(change); });
}

KWPomoSettingsModel KWPomoRunningManager::settings() const
{
    return KWPomoSettingsManager{m_kit.manager(), m_kit.center(), m_kit.account().currentUserID()}.settings();
}

bool KWPomoRunningManager::isEnabled() const
{
    return KWPomoSettings::isFocusEnabled(m_kit.account().currentUserID(), m_kit.context());
}

std::int64_t KWPomoRunningManager::secondsOf(int setting) const
{
    return std::int64_t(setting) * (m_kit.defaults().value(Settings::pomoSettingsTimeUnitIsSecond) ? 1 : 60);
}

bool KWPomoRunningManager::shouldBeLongBreaking() const
{
    return m_pomosCountForLongBreak % settings().longBreakInterval == 0;
}

void KWPomoRunningManager::setState(KWPomoRunningState state)
{
    if (state == m_state) return;
    const int before = int(m_state);
    m_state = state;
    m_kit.center().post(KWFocusRunningStateChanged, {}, {{u"old"_s, before}, {u"new"_s, int(state)}});
}

void KWPomoRunningManager::postCountDown()
{
    m_kit.center().post(KWFocusRunningCountDownChanged, qlonglong(m_currentCountDown));
}

void KWPomoRunningManager::setCountDownDuration(std::int64_t seconds)
{
    m_countDownDuration = m_currentCountDown = seconds;
    postCountDown();
}

void KWPomoRunningManager::setConfirmingToExit(bool isConfirmingToExit)
{
    m_confirmingToExitDate = isConfirmingToExit ? std::optional{now()} : std::nullopt;
}

void KWPomoRunningManager::goIdle(std::int64_t seconds)
{
    setState(KWPomoRunningState::idle);
    setCountDownDuration(seconds < 1 ? secondsOf(settings().pomoDuration) : seconds);
}

void KWPomoRunningManager::oc_startFocus() { startFocus(std::nullopt, 0, Length::Default); }

void KWPomoRunningManager::startFocus(std::int64_t seconds)
{
    if (!m_kit.account().isSignedIn() || !isEnabled()) return;
    if (m_modes.isStopwatchBusy() || isFocusing()) return;
    startFocus(std::nullopt, seconds, Length::Given);
}

void KWPomoRunningManager::startFocus(const std::optional<FocusTarget> &target, std::int64_t seconds,
                                      Length length)
{
    if (!m_kit.account().isSignedIn()) return;
    m_ports.popover.showPomoPage();
    m_modes.setFocusType(KWFocusTypePomo);
    if (target) m_association.setObject(*target);
    switch (m_state) {
    case KWPomoRunningState::foucsing:
        openSlice(KWPomoRunningState::foucsing);
        break;
    case KWPomoRunningState::paused:
        resume();
        break;
    default:
        saveWhatRanOut();
        m_timmer.reset();
        goIdle(length == Length::Default ? 0 : seconds);
        startFocusing();
    }
    m_ports.messages.remove();
}

void KWPomoRunningManager::startFocusing()
{
    m_time.start();
    if (isChainOver()) m_autoPomodoroCount = 0;
    setState(KWPomoRunningState::foucsing);
    startTimer();
    m_slices.clear();
    if (now() - m_pomoEndDate > longestPauseOfCount) {
        m_pomosCountForLongBreak = 0;
        pomoLog.info(u"上个番茄结束超过1小时，重置长休息计数"_s);
    }
    m_pomoStartDate = now();
    openSlice(KWPomoRunningState::foucsing);
}

void KWPomoRunningManager::startTimer()
{
    m_timmer.emplace(m_clock, [this] { timerStep(); });
}

void KWPomoRunningManager::pause()
{
    if (!isFocusing()) return;
    setState(KWPomoRunningState::paused);
    if (m_timmer) m_timmer->suspend();
    openSlice(KWPomoRunningState::paused);
}

void KWPomoRunningManager::resume()
{
    if (m_state != KWPomoRunningState::paused) return;
    setState(KWPomoRunningState::foucsing);
    if (m_timmer) m_timmer->resume();
    openSlice(KWPomoRunningState::foucsing);
}

void KWPomoRunningManager::switchTarget(const FocusTarget &target)
{
    m_association.setObject(target);
    if (isFocusing()) openSlice(KWPomoRunningState::foucsing);
}

void KWPomoRunningManager::standAside()
{
    pause();
    if (m_state == KWPomoRunningState::paused || m_state == KWPomoRunningState::idle) return;
    saveWhatRanOut();
    m_timmer.reset();
    m_ports.messages.remove();
    goIdle();
}

void KWPomoRunningManager::openSlice(KWPomoRunningState state)
{
    endQuestion();
    const FocusTarget target = state == KWPomoRunningState::foucsing ? m_association.object() : FocusTarget{};
    if (m_slices.open(state, target, now()) == FocusSlices::Opening::AskWhetherItBelongs)
        askWhetherItBelongs();
    keepInJournal();
}

void KWPomoRunningManager::askWhetherItBelongs()
{
    m_belonging = Belonging{.target = m_association.object(), .date = now()};
    const QString title = titleOf(m_belonging->target, m_kit.context());
    m_ports.questions.askInWindow(FocusMessages::belonging(title), [this](int button) {
        if (!m_belonging) return;
        if (button == 0) {
            m_slices.take(m_belonging->target);
            m_belonging.reset();
        } else {
            endQuestion();
        }
        keepInJournal();
    });
}

// Without an answer the time before stays as it was.
void KWPomoRunningManager::endQuestion()
{
    if (!m_belonging) return;
    m_slices.split(m_belonging->target, m_belonging->date);
    m_belonging.reset();
    m_ports.questions.takeBackFromWindow();
}

void KWPomoRunningManager::timerStep()
{
    --m_currentCountDown;
    postCountDown();
    if (m_currentCountDown < 1) {
        m_timmer.reset();
        if (isBreaking())
            finishBreaking();
        else if (isFocusing())
            focusCompleted();
    } else if (isFocusing() && m_currentCountDown % secondsToJournal == 0) {
        keepInJournal();
    }
}

// The break belongs to the Pomo before that is counted, so that a chain ends with a break.
void KWPomoRunningManager::focusCompleted()
{
    const bool isBreakNext = isAutoBreakAllowed() && !isConfirmingToExit();
    completePomo(now());
    if (!isBreakNext) return waitForBreak();
    tellOfFocusEnd(FocusMessages::Next::ByItself);
    prepareForBreaking();
    relax();
}

void KWPomoRunningManager::completePomo(Instant endDate)
{
    m_pomoEndDate = endDate;
    countPomo();
    if (!isConfirmingToExit()) saveSlices(KWPomoStatusCompleted, endDate);
}

void KWPomoRunningManager::waitForBreak()
{
    tellOfFocusEnd(FocusMessages::Next::WhenAsked);
    prepareForBreaking();
    endChain();
}

void KWPomoRunningManager::tellOfFocusEnd(FocusMessages::Next next)
{
    tell(FocusMessages::focusEnd(next, titleOf(m_association.object(), m_kit.context())));
}

void KWPomoRunningManager::tellOfBreakEnd(FocusMessages::Next next)
{
    tell(FocusMessages::breakEnd(next, titleOf(m_association.object(), m_kit.context())));
}

// Not to whoever looks at the Pomo anyway.
void KWPomoRunningManager::tell(const FocusMessage &message)
{
    if (!m_ports.popover.isOpenWithPomoPage()) m_ports.messages.show(message);
}

void KWPomoRunningManager::countPomo()
{
    ++m_pomosCountForLongBreak;
    ++m_autoPomodoroCount;
    pomoLog.info(u"完成番茄，长休息记数：%1，自动番茄计数：%2"_s.arg(m_pomosCountForLongBreak)
                     .arg(m_autoPomodoroCount));
}

bool KWPomoRunningManager::isChainOver() const
{
    const KWPomoSettingsModel now = settings();
    return now.isAutoPomo && now.isAutoBreak && m_autoPomodoroCount >= now.autoPomodoroCycle;
}

void KWPomoRunningManager::endChain()
{
    if (isChainOver()) m_autoPomodoroCount = 0;
}

bool KWPomoRunningManager::isAutoBreakAllowed() const { return settings().isAutoBreak && !isChainOver(); }

bool KWPomoRunningManager::isAutoPomoAllowed() const { return settings().isAutoPomo && !isChainOver(); }

void KWPomoRunningManager::prepareForBreaking()
{
    setState(KWPomoRunningState::waitingToRelax);
    const KWPomoSettingsModel now = settings();
    setCountDownDuration(secondsOf(shouldBeLongBreaking() ? now.longBreakDuration : now.shortBreakDuration));
}

void KWPomoRunningManager::startRelaxing()
{
    if (m_state != KWPomoRunningState::waitingToRelax) return;
    m_ports.messages.remove();
    saveWhatRanOut();
    relax();
}

void KWPomoRunningManager::relax()
{
    const bool isLong = shouldBeLongBreaking();
    if (isLong) m_pomosCountForLongBreak = 0;
    setState(isLong ? KWPomoRunningState::long_relaxing : KWPomoRunningState::short_relaxing);
    startTimer();
}

void KWPomoRunningManager::finishBreaking()
{
    if (!isAutoPomoAllowed()) return endAfterBreak();
    tellOfBreakEnd(FocusMessages::Next::ByItself);
    goIdle();
    startFocusing();
}

void KWPomoRunningManager::endAfterBreak()
{
    tellOfBreakEnd(FocusMessages::Next::WhenAsked);
    goIdle();
    endChain();
}

void KWPomoRunningManager::abandonFocusing()
{
    m_ports.messages.remove();
    saveSlices(KWPomoStatusAbandoned, now());
    setConfirmingToExit(false);
    m_timmer.reset();
    goIdle();
    m_association.setObject({});
    m_autoPomodoroCount = 0;
}

void KWPomoRunningManager::restorePomoIfNeeded()
{
    const bool ranOut = m_state == KWPomoRunningState::waitingToRelax && isConfirmingToExit();
    saveWhatRanOut();
    setConfirmingToExit(false);
    if (ranOut && isAutoBreakAllowed()) relax();
}

void KWPomoRunningManager::applicationWillTerminate()
{
    keepInJournal();
    m_ports.messages.remove();
}

void KWPomoRunningManager::pomoSettingsChanged()
{
    if (m_state == KWPomoRunningState::idle)
        setCountDownDuration(secondsOf(settings().pomoDuration));
    else if (m_state == KWPomoRunningState::waitingToRelax)
        prepareForBreaking();
    if (!isEnabled()) reset();
}

void KWPomoRunningManager::reset()
{
    m_timmer.reset();
    endQuestion();
    m_slices.clear();
    m_journal.dropRunning();
    m_pomosCountForLongBreak = 0;
    setConfirmingToExit(false);
    m_ports.messages.remove();
    goIdle();
    m_association.setObject({});
}

void KWPomoRunningManager::messageActionPressed(const QString &key)
{
    if (key == FocusMessages::relax)
        startRelaxing();
    else if (key == FocusMessages::start)
        oc_startFocus();
    else if (key == FocusMessages::exit)
        abandonFocusing();
}
