#pragma once

#include "corvexkit/time/Instant.h"

#include <QLocale>
#include <QRect>

class QPainter;

/// The name and the number of a day, today's in a circle.
namespace DayHead {

/// The name above the number, in the middle.
void paint(QPainter &painter, const QRect &bounds, Day day, bool isToday, const QLocale &locale);
void paintName(QPainter &painter, const QRect &bounds, Day day, const QLocale &locale);
/// In the middle of the bounds; quiet for a day beside the month that is shown.
enum class Tone { Strong, Plain, Quiet };
void paintNumber(QPainter &painter, const QRect &bounds, Day day, bool isToday, Tone tone,
                 const QLocale &locale);

} // namespace DayHead
