#pragma once

#include <cstdint>

/// What a Pomo is doing.
enum class KWPomoRunningState : std::uint8_t {
    idle = 0,           ///< nothing runs; the full length is shown
    foucsing = 1,       ///< a Pomo is counted down
    paused = 2,         ///< it stands still
    waitingToRelax = 3, ///< it is over; its break is loaded and has not begun
    short_relaxing = 4, ///< a short break is counted down
    long_relaxing = 5,
};
