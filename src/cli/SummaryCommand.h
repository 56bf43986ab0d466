#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

class OrvaneKit;

/// `orvane summary`. Formats other than Markdown need a QGuiApplication, see needsGuiApplication().
ExitStatus runSummary(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);

/// Whether the command lays out text. No display is needed for it.
bool needsGuiApplication(const Invocation &invocation);
