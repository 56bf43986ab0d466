#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <optional>
#include <vector>

/// The wall-clock times that libical makes of a rule, from the start on: the first `most` of those up to
/// `last`. A start that the rule does not yield is not among them. Nothing when libical refuses the rule.
std::optional<std::vector<LocalTime>> libicalOccurrences(const QString &rule, LocalTime start, LocalTime last,
                                                         std::size_t most);
