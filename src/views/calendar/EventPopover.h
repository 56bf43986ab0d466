#pragma once

#include "views/controls/PopupFrame.h"

class CXTimeZone;
struct CalendarItem;
struct KWTaskListItemModel;

/// What there is to say of an event that can only be read. It goes by Escape, Enter and a click beside it.
class EventPopover : public PopupFrame {
    Q_OBJECT

public:
    EventPopover(const CalendarItem &event, QWidget *parent);

    /// Beside `item`, a place on the screen.
    void popUp(const QRect &item);
    /// Tells beside its row about an event of a list.
    static void popUp(const KWTaskListItemModel &event, const CXTimeZone &zone, const QRect &row,
                      QWidget &parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
