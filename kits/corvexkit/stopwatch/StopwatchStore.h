#pragma once

#include "corvexkit/Result.h"

namespace Corvex::Focus {

/// Where a stopwatch keeps one text over restarts. Main thread.
class StopwatchStore {
public:
    virtual ~StopwatchStore() = default;

    /// What was saved last; empty when there is nothing.
    virtual Result<QString> load() = 0;
    /// Takes the place of what was there, entirely or not at all.
    virtual Result<void> save(const QString &text) = 0;
    virtual Result<void> clear() = 0;
    /// What is there cannot be read: it makes room for what is saved next and is kept elsewhere.
    virtual Result<void> putAside() = 0;
};

} // namespace Corvex::Focus
