#pragma once

#include <QString>

/// One text out of two that were made of `base` at the same time. What only one of them changed is as it
/// made it; where both changed the same stretch both stand, `theirs`, the separator, then `mine`, so that
/// nothing that somebody typed is lost. Each text counts as one changed stretch, from the first to the
/// last character that differs. Any thread.
QString mergedText(const QString &base, const QString &mine, const QString &theirs, QChar separator);
