#include "focus/FocusStretches.h"

namespace {

void shiftBy(std::chrono::milliseconds length, FocusRecord &record)
{
    record.startDate += length;
    record.endDate += length;
    for (FocusStretch &each : record.stretches) {
        each.startDate += length;
        each.endDate += length;
    }
}

} // namespace

QList<FocusStretch> stretchesFor(const FocusRecord &record, Instant startDate, Instant endDate)
{
    FocusRecord moved = record;
    const bool isAsLong = endDate - startDate == record.endDate - record.startDate;
    if (isAsLong || startDate >= record.endDate || endDate <= record.startDate)
        shiftBy(startDate - record.startDate, moved);

    QList<FocusStretch> fitted;
    for (FocusStretch each : moved.stretches) {
        each.startDate = std::max(each.startDate, startDate);
        each.endDate = std::min(each.endDate, endDate);
        if (each.endDate > each.startDate) fitted.append(each);
    }
    if (fitted.isEmpty()) { // but a pause is left
        if (moved.stretches.isEmpty()) return {};
        return {{.startDate = startDate, .endDate = endDate, .target = moved.stretches.first().target}};
    }
    if (startDate < moved.startDate) fitted.first().startDate = startDate;
    if (endDate > moved.endDate) fitted.last().endDate = endDate;
    return fitted;
}
