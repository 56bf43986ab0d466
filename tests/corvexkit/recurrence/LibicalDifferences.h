#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// Why libical 3.0.16 yields something else than RFC 5545 says, or yields it too late; nothing when it must
/// agree. docs/recurrence.md explains each answer. The rule names its week start, and the rule yields the
/// start, in each.
const char *libicalDifference(const CXRecurrenceRule &rule);
