#pragma once

#include "focus/FocusRecordWriter.h"

/// The stretches of a record, which stand in order and hold no pauses, for other times of it: cut at both
/// ends, the first and last one grown where the record grows. A record that stays as long, or goes to a time
/// it had nothing of, moves first.
QList<FocusStretch> stretchesFor(const FocusRecord &record, Instant startDate, Instant endDate);
