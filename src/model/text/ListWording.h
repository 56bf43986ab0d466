#pragma once

#include <QStringList>

/// Lists, numbers and places of a row in words. Any thread.
namespace ListWording {

/// "Monday, Tuesday and Friday".
QString allOf(const QStringList &items);
/// "Monday, Tuesday or Friday".
QString anyOf(const QStringList &items);

/// "1st", "2nd", "21st"; from the end "last", "2nd to last". Not 0.
QString ordinal(int place);

} // namespace ListWording
