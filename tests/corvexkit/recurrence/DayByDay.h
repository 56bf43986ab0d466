#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <vector>

/// What a rule of days, weeks, months or years yields up to `last`, the start included: read day by day,
/// as RFC 5545 says it, without any thought of speed. The rule names its week start; no SKIP, COUNT or
/// UNTIL.
std::vector<LocalTime> readDayByDay(const CXRecurrenceRule &rule, LocalTime start, Day last);
