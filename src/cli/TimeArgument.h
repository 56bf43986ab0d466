#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXTimeZone.h"

/// A time as commands take it: ISO 8601, local to `zone` unless it ends in an offset; a day alone is its
/// beginning. The error names the text.
Result<Instant> readTime(const QString &text, const CXTimeZone &zone);
