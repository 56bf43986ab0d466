#pragma once

#include "model/records/KWConstants.h"

#include <QList>
#include <QString>

/// What a person can do with a session of focus.
enum class FocusCommand { Start, Pause, Resume, Stop, Relax, Skip, Exit };

/// The time of a session, as a clock shows it.
struct FocusReading {
    std::int64_t seconds = 0; ///< left of a Pomo or break; of a stopwatch, run
    double share = 0;         ///< of the ring, from the top clockwise, 0 … 1

    bool operator==(const FocusReading &) const = default;
};

/// What a page of focus shows of a mode beside the time.
struct FocusFace {
    enum class Phase { Idle, Focusing, Paused, Waiting, Break };

    Phase phase = Phase::Idle;
    QString words{};                ///< the line below the time
    QString notice{};               ///< what starting does to the other mode; empty for nothing
    QList<FocusCommand> commands{}; ///< the first is the one that is asked for most

    bool operator==(const FocusFace &) const = default;
};
