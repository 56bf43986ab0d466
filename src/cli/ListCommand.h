#pragma once

#include "cli/Commands.h"

/// `orvane list`
ExitStatus runList(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);
