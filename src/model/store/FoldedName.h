#pragma once

#include <QString>

/// A name as names are compared when typed: in compatibility form (Unicode NFKC), case-folded, without
/// white space.
QString foldedName(const QString &name);
