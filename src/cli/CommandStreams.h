#pragma once

#include "cli/TerminalText.h"

#include <QTextStream>

#include <istream>

/// Exit statuses of the program.
enum class ExitStatus { Done = 0, CouldNot = 1, WrongUsage = 2 };

/// What a command reads and writes.
struct CommandStreams {
    std::istream &in; ///< bytes, meant to be UTF-8
    QTextStream &out;
    QTextStream &err;
};

/// One sentence on standard error.
inline ExitStatus failWith(const QString &sentence, ExitStatus status, QTextStream &err)
{
    err << terminalText(sentence) << '\n';
    return status;
}
