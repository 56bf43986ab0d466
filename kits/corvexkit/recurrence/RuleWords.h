#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// The words of a recurrence rule, RFC 5545 section 3.3.10 and RFC 7529 section 4, as they are written.
namespace RuleWords {

/// In the order of CXRecurrenceRule::Frequency.
inline constexpr std::array<std::string_view, 7> frequencies{"SECONDLY", "MINUTELY", "HOURLY", "DAILY",
                                                             "WEEKLY",   "MONTHLY",  "YEARLY"};
/// From Sunday, which is 0.
inline constexpr std::array<std::string_view, 7> weekdays{"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
/// In the order of CXRecurrenceRule::Skip.
inline constexpr std::array<std::string_view, 3> skips{"OMIT", "BACKWARD", "FORWARD"};

} // namespace RuleWords
