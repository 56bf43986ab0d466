#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <cstdint>
#include <initializer_list>
#include <variant>
#include <vector>

/// A value bound to a placeholder of a query.
using SqlValue = std::variant<std::int64_t, QString>;
using SqlValues = std::vector<SqlValue>;

/// An instant as columns hold it: milliseconds since the epoch.
inline std::int64_t storedInstant(Instant instant) { return instant.time_since_epoch().count(); }

/// Which records a context is asked for: what follows WHERE, and what fills its placeholders.
struct SqlCondition {
    const char *where = "1";
    SqlValues values{};
    const char *orderBy = nullptr;
    std::int64_t limit = -1;     ///< negative: all
    const char *index = nullptr; ///< the one to use; the planner has no statistics to choose by
};
