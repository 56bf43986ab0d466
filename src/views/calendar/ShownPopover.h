#pragma once

#include "calendar/CalendarChoices.h"
#include "views/controls/PopupFrame.h"

class QListView;
class QStandardItemModel;
class SegmentedControl;
class TextButton;

/// What the calendar shows: a tick for each kind of thing, list, folder and calendar, and what gives tasks
/// their colour. Arrows move, typing finds, Space and Enter turn a tick over, Escape closes. It stays open
/// while things are ticked; whoever stores that tells it what holds then.
class ShownPopover : public PopupFrame {
    Q_OBJECT

public:
    explicit ShownPopover(QWidget *parent);

    /// The row that is current stays so.
    void setChoices(const CalendarChoices &choices, KWCalendarColorBy colorBy);
    /// With its end below the end of that rectangle of the screen.
    void popUp(const QRect &button);

Q_SIGNALS:
    void toggled(const CalendarChoice &choice, bool isShown);
    void allRequested();
    void colorPicked(KWCalendarColorBy colorBy);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addHeading(const QString &text);
    void addRow(const CalendarChoice &choice);
    void toggle(const QModelIndex &index);
    void fitRows();

    QListView *m_list;
    QStandardItemModel *m_rows;
    SegmentedControl *m_colors;
    TextButton *m_showAll;
    QList<CalendarChoice> m_choices;
};
