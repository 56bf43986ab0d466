#include "focus/FocusSlices.h"

#include <algorithm>

FocusSlices::Opening FocusSlices::open(KWPomoRunningState state, const FocusTarget &target, Instant date)
{
    const bool isOtherTarget = !m_slices.isEmpty() && state == KWPomoRunningState::foucsing &&
                               m_slices.last().state == KWPomoRunningState::foucsing;
    if (isOtherTarget) {
        const FocusSlice &last = m_slices.last();
        if (last.target == target) return Opening::Done;
        if (date - last.startDate < FocusLimits::minimumSlice) {
            take(target);
            return Opening::Done;
        }
        if (last.target.isNone()) return Opening::AskWhetherItBelongs;
    }
    closeAt(date);
    m_slices.append({.state = state, .target = target, .startDate = date});
    return Opening::Done;
}

void FocusSlices::take(const FocusTarget &target)
{
    if (!m_slices.isEmpty()) m_slices.last().target = target;
}

void FocusSlices::split(const FocusTarget &target, Instant date)
{
    closeAt(date);
    m_slices.append({.state = KWPomoRunningState::foucsing, .target = target, .startDate = date});
}

// Never before it began: the person may have been asked about it before a pause.
void FocusSlices::closeAt(Instant date)
{
    if (m_slices.isEmpty() || m_slices.last().endDate) return;
    m_slices.last().endDate = std::max(date, m_slices.last().startDate);
}

void FocusSlices::forgetTasks(const QStringList &taskIDs)
{
    for (FocusSlice &each : m_slices)
        if (taskIDs.contains(each.taskID())) each.target = {};
}

QList<FocusStretch> FocusSlices::stretches(Instant upTo) const
{
    QList<FocusStretch> stretches;
    for (const FocusSlice &each : m_slices)
        stretches.append({.startDate = each.startDate,
                          .endDate = each.endDate.value_or(std::max(upTo, each.startDate)),
                          .target = each.target,
                          .isPause = each.state == KWPomoRunningState::paused});
    return stretches;
}
