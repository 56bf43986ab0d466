#include "focus/FocusAssociation.h"
#include "focus/FocusMessages.h"
#include "focus/FocusTargetTitle.h"
#include "focus/KWPomoRunningManager.h"
#include "model/OrvaneKit.h"

using namespace std::chrono;

// What the computer's sleep does to a Pomo or a break, see docs/focus.md.

namespace {

constexpr int mostPomosOfOneSleep = 5;

} // namespace

void KWPomoRunningManager::computerWillSleep()
{
    m_time.willSleep();
    m_computerSleepDate = now();
    if ((isFocusing() || isBreaking()) && m_timmer) m_timmer->suspend();
}

void KWPomoRunningManager::computerDidWake()
{
    m_time.didWake();
    const auto sleepDate = std::exchange(m_computerSleepDate, std::nullopt);
    if (!sleepDate || !(isFocusing() || isBreaking())) return;
    const seconds slept = floor<seconds>(now() - *sleepDate);
    if (m_timmer) m_timmer->resume();
    const seconds left{m_currentCountDown};
    if (left >= slept) {
        m_currentCountDown -= slept.count();
        postCountDown();
        return;
    }
    fastForward(*sleepDate + left, slept - left);
}

// Lays breaks and Pomos end to end from the end of the phase that ran out, as far as the automatic rules go.
void KWPomoRunningManager::fastForward(Instant phaseEnd, seconds remainder)
{
    m_timmer.reset();
    const KWPomoSettingsModel lengths = settings();
    bool isPomoOver = isFocusing();
    for (int pomos = 1;; ++pomos) {
        if (isPomoOver) {
            const bool isBreakNext =
                isAutoBreakAllowed() && !isConfirmingToExit() && pomos < mostPomosOfOneSleep;
            completePomo(phaseEnd);
            if (!isBreakNext) return waitForBreak();
            const bool isLong = shouldBeLongBreaking();
            const seconds length{secondsOf(isLong ? lengths.longBreakDuration : lengths.shortBreakDuration)};
            if (isLong) m_pomosCountForLongBreak = 0;
            if (remainder < length) {
                tellOfFocusEnd(FocusMessages::Next::ByItself);
                return goOn(isLong ? KWPomoRunningState::long_relaxing : KWPomoRunningState::short_relaxing,
                            length, remainder);
            }
            remainder -= length;
            phaseEnd += length;
        }
        isPomoOver = true;
        m_pomoStartDate = phaseEnd;
        if (!isAutoPomoAllowed()) return endAfterBreak();
        m_slices.clear();
        m_slices.open(KWPomoRunningState::foucsing, m_association.object(), phaseEnd);
        const seconds length{secondsOf(lengths.pomoDuration)};
        if (remainder < length) {
            tellOfBreakEnd(FocusMessages::Next::ByItself);
            goOn(KWPomoRunningState::foucsing, length, remainder);
            return keepInJournal();
        }
        remainder -= length;
        phaseEnd += length;
    }
}

void KWPomoRunningManager::goOn(KWPomoRunningState state, seconds length, seconds gone)
{
    setState(state);
    m_countDownDuration = length.count();
    m_currentCountDown = (length - gone).count();
    postCountDown();
    startTimer();
}
