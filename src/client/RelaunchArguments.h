#pragma once

#include "cli/Invocation.h"

/// The command line on which the program starts again: the settings of this run, but nothing that was to be
/// done once, such as opening a link or filling a folder.
QStringList relaunchArguments(const Invocation &invocation, bool isInBackground);
