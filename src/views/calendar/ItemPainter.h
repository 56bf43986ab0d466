#pragma once

#include "calendar/CalendarItem.h"
#include "views/calendar/CalendarPlaces.h"

class QPainter;

/// Paints the items of a calendar. All leave the painter as they found it.
namespace ItemPainter {

struct State {
    bool isSelected = false;
    bool isDragged = false; ///< where it would be, or where it is while it would be elsewhere
    KWCalendarColorBy colorBy = KWCalendarColorByProject; ///< of tasks; events have that of their calendar
};
/// `place` stands where it is painted, mirrored if the text runs from right to left.
void paint(QPainter &painter, const ItemPlace &place, const CalendarItem &item, State state,
           Qt::LayoutDirection direction);
/// "+3", or "+3 more" where there is room.
void paintMore(QPainter &painter, const MorePlace &place, Qt::LayoutDirection direction);

} // namespace ItemPainter
