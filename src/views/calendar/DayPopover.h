#pragma once

#include "calendar/CalendarItem.h"
#include "views/controls/PopupFrame.h"

class QListView;
class QStandardItemModel;

/// All that a day of the calendar has, where the page has no room for it. Arrows go from item to item, Enter
/// or a double click opens one, Space or its box completes it, Delete deletes it, and it can be dragged out
/// onto the page; Escape closes. A link leads to the day alone.
class DayPopover : public PopupFrame {
    Q_OBJECT

public:
    DayPopover(Day day, KWCalendarColorBy colorBy, QWidget *parent);

    Day day() const { return m_day; }
    /// In their order; the one that is current stays so, or else the one in its place is.
    void setItems(const std::vector<CalendarItem> &items);
    void setCurrent(std::size_t item);
    /// Beside `counter`, a place on the screen.
    void popUp(const QRect &counter);

Q_SIGNALS:
    void opened(const CalendarItem &item);
    void completed(const CalendarItem &item);
    void deleted(const CalendarItem &item);
    void dayOpened();
    /// An item is dragged, to that point of the screen, outside of this.
    void carried(const CalendarItem &item, const QPoint &point);
    void carryingGivenUp();
    void dropped();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Press {
        CalendarItem item;
        QPoint point;
        bool isCarrying = false;
    };
    const CalendarItem *itemAt(const QModelIndex &index) const;
    bool takeKey(int key);
    bool takeMouse(const QMouseEvent &event);
    void press(const QPoint &point);
    void move(const QPoint &point);
    void release();
    void open(const CalendarItem &item);
    int heightOfItems() const;

    const Day m_day;
    std::vector<CalendarItem> m_items;
    QListView *m_list;
    QStandardItemModel *m_rows;
    std::optional<Press> m_press;
};
