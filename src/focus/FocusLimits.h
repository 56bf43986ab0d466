#pragma once

#include <chrono>

/// What is too short to be kept. One place for all of focus.
namespace FocusLimits {

/// A session, or a task's part of one that counts as a Pomo.
inline constexpr std::chrono::seconds minimumFocus{60};
/// A stretch: a shorter one goes to what was focused on next.
inline constexpr std::chrono::seconds minimumSlice{10};

} // namespace FocusLimits
