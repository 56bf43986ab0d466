#pragma once

#include "capture/TextRange.h"

#include <QList>
#include <QString>

// How texts and ranges stand in the case files of this folder.

/// The text between the double quotes around a cell; \n, \r, \t and \uXXXX stand for those characters.
QString quotedText(const QString &cell);

/// "3+5 10+2": the ranges [3, 8) and [10, 12); "-" for none.
QList<TextRange> rangesOf(const QString &cell);
QString textOf(const QList<TextRange> &ranges);
