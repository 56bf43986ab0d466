#pragma once

#include "cli/Invocation.h"

class OrvaneKit;
class QTextStream;

/// Exit statuses of the program.
enum class ExitStatus { Done = 0, CouldNot = 1, WrongUsage = 2 };

/// What a command reads and writes.
struct CommandStreams {
    QTextStream &in;
    QTextStream &out;
    QTextStream &err;
};

/// Runs a command on the account of the invocation's data folder, with no window and no display. A
/// client that has the folder open hears of a change at once.
ExitStatus runCommand(const Invocation &invocation, CommandStreams streams);

/// One sentence on standard error.
ExitStatus failWith(const QString &sentence, ExitStatus status, QTextStream &err);
