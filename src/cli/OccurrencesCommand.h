#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"
#include "corvexkit/time/CXTimeZone.h"

/// `orvane occurrences`: the occurrences of one rule, or with `--stdin` those of each line. Needs no store.
/// Times are local to `zone` where a line names no other.
ExitStatus runOccurrences(const Invocation &invocation, const CXTimeZone &zone, CommandStreams streams);
