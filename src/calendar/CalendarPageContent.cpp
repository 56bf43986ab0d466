#include "calendar/CalendarPageContent.h"

namespace {

// Less high than a line of text is nothing to read.
constexpr int shortestMinutes = 30;

} // namespace

void CalendarPageContent::layOut()
{
    if (page.kind == CalendarPage::Kind::Month) {
        bars = monthBars(items, page);
        return;
    }
    timed = timedBoxes(items, page, shortestMinutes);
    bars = allDayBars(items, page);
}
