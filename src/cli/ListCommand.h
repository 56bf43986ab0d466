#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

class OrvaneKit;

/// `orvane list`
ExitStatus runList(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);
