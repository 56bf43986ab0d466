#pragma once

#include <QString>

/// The text with a space in place of every line break.
QString lineBreaksAsSpaces(QString text);

/// The text on one line, as titles are: every line break becomes a space, the ends are trimmed, halves of
/// surrogate pairs become U+FFFD.
QString onOneLine(QString text);
