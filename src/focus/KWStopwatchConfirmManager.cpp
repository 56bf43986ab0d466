#include "focus/KWStopwatchConfirmManager.h"

#include "model/events/KWNotificationCenter.h"

#include <algorithm>
#include <utility>

KWStopwatchConfirmManager::KWStopwatchConfirmManager(KWNotificationCenter &center,
                                                     StopwatchConfirmPort &window,
                                                     std::chrono::seconds automaticStopLength)
    : m_center{center}, m_window{window}, m_automaticStopLength{automaticStopLength}
{
}

void KWStopwatchConfirmManager::show(double duration, Completion completion)
{
    if (m_isConfirming) return;
    m_isConfirming = true;
    m_originalDuration = m_confirmedDuration = duration;
    m_completion = std::move(completion);
    m_window.show({.originalDuration = duration,
                   .isAutoStoped = double(m_automaticStopLength.count()) <= duration,
                   .valueChangedHandler = [this](double seconds) { m_confirmedDuration = seconds; },
                   .confirmActionHandler = [this] { confirm(); },
                   .postponedHandler = [this] { postpone(); }});
}

void KWStopwatchConfirmManager::confirm()
{
    const double confirmed = std::min(m_confirmedDuration, m_originalDuration);
    if (!m_isConfirming || !(confirmed > 0)) return;
    const Completion completion = std::exchange(m_completion, {});
    if (completion) completion(confirmed, m_originalDuration);
    m_center.post(didConfirm);
    m_isConfirming = false;
    m_window.close();
    if (onClosed) onClosed();
}

void KWStopwatchConfirmManager::postpone()
{
    m_isConfirming = false;
    m_completion = {};
}
