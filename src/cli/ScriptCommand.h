#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

class OrvaneKit;
struct DataFolders;

/// `orvane today`, `next7days`, `search TEXT` and `projects`: the answers that other programs get on the
/// bus, read from the store. Nothing while nobody is signed in.
ExitStatus runScriptCommand(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);

/// `orvane pomo SECONDS`: through the client that has the folder open.
ExitStatus runPomo(const Invocation &invocation, const DataFolders &folders, CommandStreams streams);
