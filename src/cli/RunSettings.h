#pragma once

#include "cli/Invocation.h"
#include "corvexkit/time/CXTimeZone.h"

#include <optional>

/// The zone of `--zone`, or nothing when it is not given. An unknown one is wrong usage.
Result<std::optional<CXTimeZone>> zoneOf(const Invocation &invocation);

/// Makes `--locale` the default locale of the process. An unknown one is wrong usage.
Result<void> applyLocale(const Invocation &invocation);

/// As the language of the default locale is written, or as it was asked for.
Qt::LayoutDirection layoutDirectionOf(const Invocation &invocation);
