#pragma once

#include "support/CaseTable.h"

/// The calls of one sequence of tests/data/app/orders.txt.
inline QStringList callsOf(const QString &sequence)
{
    QStringList calls;
    for (const CaseRow &row : readCases("app/orders.txt", 2))
        if (row.cells.at(0) == sequence) calls << row.cells.at(1);
    return calls;
}

/// A start that leads into `session`, which is a sequence too.
inline QStringList startInto(const QString &session)
{
    QStringList calls;
    for (const QString &call : callsOf(QStringLiteral("start")))
        calls << (call == QStringLiteral("session") ? callsOf(session) : QStringList{call});
    return calls;
}
