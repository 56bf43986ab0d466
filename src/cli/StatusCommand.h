#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"
#include "model/records/KWConstants.h"

class OrvaneKit;

/// `orvane done` and `orvane undo`: gives the named tasks that status.
ExitStatus runStatus(KWTaskStatus status, const Invocation &invocation, OrvaneKit &kit,
                     CommandStreams streams);
