#pragma once

class CalendarView;

/// What screen readers find in a view of the calendar: a list of its items, each with all that is painted of
/// it in words, and where none is selected the day and time that is current. Main thread.
namespace CalendarAccessible {

/// Once, before the first view is asked about.
void install();
/// The keyboard has gone to another item or spot.
void tellCurrent(CalendarView &view);
/// The items are others now.
void forgetItems(CalendarView &view);

} // namespace CalendarAccessible
