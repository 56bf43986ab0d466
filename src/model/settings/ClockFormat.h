#pragma once

#include <QLocale>
#include <QString>

#include <chrono>
#include <optional>

/// How times of day are written and read: as the person chose, else in the locale's short format. Any
/// thread.
namespace ClockFormat {

/// From now on, for the whole program: "24", "12", or any other text for the way of the locale.
void choose(const QString &format);
/// What was chosen; nothing for the way of the locale.
std::optional<bool> chosen24Hour();

/// As QLocale reads it, such as "HH:mm" or "h:mm AP".
QString pattern(const QLocale &locale);
QString timeOfDay(std::chrono::milliseconds sinceMidnight, const QLocale &locale);

} // namespace ClockFormat
