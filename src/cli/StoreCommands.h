#pragma once

#include "cli/CommandStreams.h"
#include "cli/Invocation.h"

class CXClock;
class OrvaneKit;
struct DataFolders;

/// `orvane backup [FILE]`: answers where the backup is.
ExitStatus runBackup(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);

/// `orvane restore FILE`, on a folder that nobody has open; answers where the store that was there is kept.
ExitStatus runRestore(const Invocation &invocation, const DataFolders &folders, const CXClock &clock,
                      CommandStreams streams);

/// `orvane export [FILE]`: to standard output without FILE. A file that is no export is left alone.
ExitStatus runExport(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);

/// `orvane import FILE`
ExitStatus runImport(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams);
