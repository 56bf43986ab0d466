#pragma once

#include "calendar/CalendarPageContent.h"

/// The page with so many more items on every day that most of them overlap, a fifth of them all day: what a
/// full calendar looks like, and how fast it is. The same every time.
CalendarPageContent crowdedPage(CalendarPageContent content, int itemsADay);
