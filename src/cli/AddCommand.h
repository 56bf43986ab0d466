#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

class FixedClock;
class OrvaneKit;

/// `orvane add`: saves a task, or tells what would be recognised.
ExitStatus runAdd(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);

/// `orvane add --dry-run --stdin`: one JSON object for each line "LOCAL-ISO <TAB> TITLE", as the lines
/// come; each title is read as of its own time, which `clock`, the kit's, is set to. A line that is no
/// such pair is answered with {"error": "…"}.
ExitStatus runDryRunOfLines(FixedClock &clock, OrvaneKit &kit, CommandStreams streams);
