#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// The rule of something that is moved as a whole by one of its occurrences, so that the others go along:
/// every Monday, moved from a Monday to a Tuesday, is every Tuesday. Its end goes along, too. Nothing when
/// the rule cannot tell it: when its times, positions, weeks or days of the year are what makes the
/// occurrence.
std::optional<CXRecurrenceRule> movedRule(const CXRecurrenceRule &rule, LocalTime from, LocalTime to);
