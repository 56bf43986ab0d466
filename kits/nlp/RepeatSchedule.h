#pragma once

#include "nlp/Calendar.h"

#include <string>

namespace nlp {

/// A repeat looked up in the calendar: its first day and its rule.
class RepeatSchedule {
public:
    explicit RepeatSchedule(const RepeatReference &repeat) : m_repeat{repeat} {}

    /// The first day from `earliest` on that the repeat meets; nothing when there is none.
    std::optional<LocalDay> firstDay(LocalDay earliest) const;

    /// The rule as RFC 5545, section 3.3.10, writes it, after "RRULE:". `count` 0 is without an end.
    std::wstring rule(int count, std::optional<LocalDay> until) const;

private:
    bool meets(LocalDay day) const;
    void appendDays(std::wstring &rule) const;

    RepeatReference m_repeat;
};

} // namespace nlp
