#pragma once

#include "cli/Commands.h"
#include "model/records/KWConstants.h"

/// `orvane done` and `orvane undo`: gives the named tasks that status.
ExitStatus runStatus(KWTaskStatus status, const Invocation &invocation, OrvaneKit &kit,
                     CommandStreams streams);
