#pragma once

#include "calendar/CalendarItem.h"
#include "views/calendar/CalendarSpot.h"

#include <QObject>
#include <QRect>
#include <QStringList>

/// What the views of the calendar ask for; whoever carries it out listens. Where an item is to be, `there`
/// tells by its start, its end and whether it lasts all day. Main thread.
class CalendarEdits : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void moveRequested(const CalendarItem &item, const CalendarItem &there);
    void createRequested(const QString &title, const CalendarItem &there);
    void completeRequested(const CalendarItem &item);
    void deleteRequested(const CalendarItem &item);
    /// `place` is that of the item, on the screen.
    void openRequested(const CalendarItem &item, const QRect &place);
    /// At that place on the screen.
    void menuRequested(const CalendarItem &item, const QPoint &place);
    /// Tasks were dropped there.
    void scheduleRequested(const QStringList &taskIDs, const CalendarSpot &spot);
};
