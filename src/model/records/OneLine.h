#pragma once

#include <QString>

/// The text on one line, as titles are: every line break becomes a space, the ends are trimmed.
QString onOneLine(QString text);
