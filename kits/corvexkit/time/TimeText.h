#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>
#include <QStringView>

#include <optional>

/// Dates and times as text, ISO 8601 extended format. Reading is strict: the whole text, ASCII digits,
/// real dates of the years 0000 to 9999, no leap second; anything else reads as nothing. Any thread.
namespace TimeText {

enum class Fraction {
    WhenNeeded, ///< ".250" only when the milliseconds are not zero
    Always,     ///< ".000" too
    Never,      ///< milliseconds are cut
};

/// "2030-05-01".
std::optional<Day> toDay(QStringView text);
QString fromDay(Day day);

/// "09:00", "09:00:30" or "09:00:30.250", as time since midnight, below 24 hours.
std::optional<std::chrono::milliseconds> toTimeOfDay(QStringView text);
/// "09:00"; with ":30" when there are seconds. Milliseconds are cut.
QString fromTimeOfDay(std::chrono::milliseconds sinceMidnight);

/// A day and a time of day as above, joined by "T" or one space: "2030-05-01T09:00:00".
std::optional<LocalTime> toLocalTime(QStringView text);
/// "2030-05-01T09:00:00".
QString fromLocalTime(LocalTime time, Fraction fraction = Fraction::WhenNeeded);

/// RFC 3339: a local time with seconds, up to nine places of a fraction (cut to milliseconds) and "Z"
/// or an offset such as "+02:00".
std::optional<Instant> toInstant(QStringView text);
/// "2030-05-01T09:00:00Z". Outside the years of std::chrono::year its first or its last moment.
QString fromInstant(Instant instant, Fraction fraction = Fraction::WhenNeeded);

} // namespace TimeText
