#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

/// Runs a command on the account of the invocation's data folder, with no window and no display. A
/// client that has the folder open hears of a change at once.
ExitStatus runCommand(const Invocation &invocation, CommandStreams streams);
