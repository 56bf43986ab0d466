#pragma once

#include <QString>

/// A text of more than `longest` characters, as a person counts them, cut behind these and ended so; never
/// half of one (Unicode Standard Annex 29, grapheme clusters).
QString shortened(const QString &text, int longest, const QString &ending = QStringLiteral("…"));
