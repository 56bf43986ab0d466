#pragma once

#include <QList>
#include <QStringList>

/// One case of a table in tests/data.
struct CaseRow {
    QStringList cells; ///< trimmed; "-" stays "-"
    QByteArray where;  ///< "zones.txt:12", for the tag of the row
};

/// Reads tests/data/`file`: one case a line, its cells parted by "|"; empty lines and lines that begin
/// with "#" are passed over. A file that is missing or empty, or a row of another width, ends the
/// program with a message: a table that is not read tests nothing.
QList<CaseRow> readCases(const char *file, int columns);

/// The rows of a data function: one column "cells", a QStringList, the place as the tag.
void addCaseRows(const char *file, int columns);
