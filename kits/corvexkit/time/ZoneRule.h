#pragma once

#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

/// A moment from which a zone keeps another offset.
struct ZoneTransition {
    std::chrono::sys_seconds at;
    std::chrono::seconds offset; // east of Greenwich, from `at` on
};

/// The rule a zone follows in every year: the TZ string of POSIX.1-2017 section 8.3, with the hours from
/// -167 to 167 that RFC 8536 section 3.3.1 adds.
class ZoneRule {
public:
    /// Nothing for a text that is no such rule, or one that leaves the dates of summer time open.
    static std::optional<ZoneRule> parse(std::string_view text);

    std::chrono::seconds standardOffset() const { return m_standardOffset; }
    bool hasSummerTime() const { return m_summer.has_value(); }

    /// Appends the transitions of `years` years from `first` on, in no set order.
    void appendTransitions(std::chrono::year first, int years, std::vector<ZoneTransition> &list) const;

    /// One day of every year and a time of it.
    struct Date {
        enum class Kind { MonthWeekDay, JulianDay, DayOfYear };
        Kind kind;
        unsigned month = 0; // MonthWeekDay
        unsigned week = 0;  // MonthWeekDay: 1 to 5, 5 the last
        unsigned day = 0;   // weekday from Sunday 0; 1 to 365 never counting 29 February; 0 to 365
        std::chrono::seconds time{7200};

        std::chrono::local_seconds inYear(std::chrono::year year) const;
    };

private:
    struct Summer {
        std::chrono::seconds offset;
        Date start;
        Date end;
    };

    std::chrono::seconds m_standardOffset{0};
    std::optional<Summer> m_summer;
};
