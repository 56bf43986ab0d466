#pragma once

#include "corvexkit/time/Instant.h"
#include "focus/FocusTarget.h"

#include <QList>

/// A stretch of a focus session that is over.
struct FocusStretch {
    Instant startDate{};
    Instant endDate{};
    FocusTarget target{};
    bool isPause = false; ///< nothing was done

    /// Never below none.
    std::chrono::milliseconds length() const
    {
        return std::max(endDate - startDate, std::chrono::milliseconds{0});
    }
    bool operator==(const FocusStretch &) const = default;
};

/// How long the pauses among them were.
std::chrono::milliseconds pauseOf(const QList<FocusStretch> &stretches);
/// The same, rounded.
std::int64_t pauseSecondsOf(const QList<FocusStretch> &stretches);
