#pragma once

#include "model/text/TextRange.h"

#include <QList>
#include <QString>

// How texts and ranges stand in case files.

/// The text of a cell in double quotes, with the escapes of JSON (RFC 8259, section 7).
QString quotedText(const QString &cell);

/// "3+5 10+2": the ranges [3, 8) and [10, 12); "-" for none.
QList<TextRange> rangesOf(const QString &cell);
QString textOf(const QList<TextRange> &ranges);
