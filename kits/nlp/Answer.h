#pragma once

#include "nlp/Calendar.h"

#include <string>
#include <string_view>
#include <vector>

namespace nlp {

/// What a title says about time.
struct Answer {
    bool isFound = false;
    LocalTime start;
    std::optional<LocalTime> due; ///< of an all-day date its last day
    bool isAllDay = false;
    std::wstring repeatRule;                   ///< "RRULE:…" of RFC 5545, section 3.8.5.3, or empty
    std::vector<std::wstring> reminders;       ///< "TRIGGER:…" of RFC 5545, section 3.8.6.3
    std::vector<std::wstring_view> recognized; ///< views of the text, in its order

    /// The answer as JSON (RFC 8259), one code point a unit. Units that are no code points, surrogates
    /// among them, are written as U+FFFD.
    std::wstring json() const;
};

/// "yyyy-MM-ddTHH:mm:ss", or a date alone; seconds are dropped. Nothing for any other text or a time that
/// does not exist.
std::optional<LocalTime> timeFromText(std::wstring_view text);

} // namespace nlp
