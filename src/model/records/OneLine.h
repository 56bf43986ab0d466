#pragma once

#include <QString>

/// The text on one line, as titles are: every line break becomes a space, the ends are trimmed, halves of
/// surrogate pairs become U+FFFD.
QString onOneLine(QString text);
