#pragma once

#include "model/text/TextRange.h"

#include <QList>
#include <QString>

// The text of a title, apart from what is recognised in it.

/// The typed text without `cuts`, which may come in any order and overlap. Where something was cut, the
/// white space around it becomes one space, or none at the ends of the title and before a closing sign.
/// Nor do the commas and colons that only parted it from the title stay, nor brackets left empty.
QString titleWithout(const QString &text, QList<TextRange> cuts);

/// The text with U+FFFC in place of every unit of `ranges`, so that all places stay where they are.
QString masked(QString text, const QList<TextRange> &ranges);
