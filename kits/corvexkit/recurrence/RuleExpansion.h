#pragma once

#include "corvexkit/recurrence/OccurrenceCollector.h"

/// Hands the wall-clock times of a completed rule to `collector`, ascending, until it wants no more: those
/// from about its begin() on, or all from its start on where they must be counted one by one.
void expandRule(const CXRecurrenceRule &rule, OccurrenceCollector &collector);
