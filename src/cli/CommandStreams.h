#pragma once

#include <QTextStream>

/// Exit statuses of the program.
enum class ExitStatus { Done = 0, CouldNot = 1, WrongUsage = 2 };

/// What a command reads and writes.
struct CommandStreams {
    QTextStream &in;
    QTextStream &out;
    QTextStream &err;
};

/// One sentence on standard error.
inline ExitStatus failWith(const QString &sentence, ExitStatus status, QTextStream &err)
{
    err << sentence << '\n';
    return status;
}
