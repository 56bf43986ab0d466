#include "focus/StopwatchDataProcessor.h"

#include "corvexkit/stopwatch/StopwatchTimeline.h"
#include "focus/FocusLimits.h"
#include "focus/FocusRecordQueue.h"
#include "model/OrvaneKit.h"
#include "model/records/KWPomodoro.h"

namespace {

// A choice that was changed at once was a slip: its moments belong to what came next.
void appendStretch(QList<FocusStretch> &stretches, FocusStretch next)
{
    const bool follows = !stretches.isEmpty() && !stretches.last().isPause && !next.isPause;
    if (follows && stretches.last().length() < FocusLimits::minimumSlice)
        next.startDate = stretches.takeLast().startDate;
    stretches.append(std::move(next));
}

FocusRecord recordOf(const Corvex::Focus::StopwatchTimeline &timeline)
{
    FocusRecord record{.startDate = timeline.startDate().value_or(Instant{}),
                       .endDate = timeline.endDate().value_or(Instant{}),
                       .type = KWFocusTypeStopwatch};
    for (const Corvex::Focus::StopwatchSegment &each : timeline.segments())
        appendStretch(record.stretches, {.startDate = each.startDate,
                                         .endDate = each.endDate.value_or(each.startDate),
                                         .target = FocusTarget::fromText(each.object),
                                         .isPause = !each.isRunning()});
    record.pauseDuration = pauseSecondsOf(record.stretches);
    return record;
}

} // namespace

Result<void> StopwatchDataProcessor::saveStopwatch(const Corvex::Focus::StopwatchTimeline &timeline)
{
    const FocusRecord record = recordOf(timeline);
    if (FocusRecordWriter{m_kit}.isStored(record)) return {};
    return m_records.store(record);
}
