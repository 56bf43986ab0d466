#pragma once

#include "calendar/CalendarPageContent.h"
#include "views/calendar/CalendarEdits.h"
#include "views/calendar/CalendarView.h"

class CalendarHeader;
class CalendarTray;
class CXClock;
class MonthGridView;
class QBoxLayout;
class QStackedWidget;
class TimeGridView;

/// The calendar in place of the list: its head, a page, and beside it, when it is wanted, the tasks without a
/// date. The focus that it is given goes to the page. T goes to today, D, W and M show a day, a week, a
/// month, G asks
/// for a day, S for what is shown.
class CalendarPane : public QWidget {
    Q_OBJECT

public:
    explicit CalendarPane(CXClock &clock, QWidget *parent = nullptr);

    CalendarHeader &header() { return *m_header; }
    CalendarEdits &edits() { return m_edits; }
    CalendarTray &tray() { return *m_tray; }
    /// That shows the page.
    CalendarView &view() const;
    /// Both of them.
    QList<CalendarView *> views() const;

    /// What goes on in the keyboard stays: the same day is current, as far as the page has it.
    void showPage(const CalendarPageContent &content);
    void setLook(const CalendarView::Look &look);
    void setTrayShown(bool isShown);
    bool isTrayShown() const;

    // What the commands for tasks act on: nothing of events and of later occurrences, which are no tasks.
    /// Of a task or checklist item; empty for none.
    QString selectedID() const;
    /// The task itself, or the one that the item is in.
    QString selectedTask() const;
    /// On the screen, below it.
    QPoint placeOfSelected() const;

Q_SIGNALS:
    void pagesTurned(int pages);
    void dayRequested(Day day);
    void dayOpened(Day day); ///< alone
    void todayRequested();
    void kindRequested(CalendarPage::Kind kind);
    void dateAsked();
    void shownAsked(); ///< what is shown is to be chosen
    void selectionChanged();
    void trayShown(bool isShown); ///< or not any more

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void connectView(CalendarView &view);
    const CalendarItem *selectedOwn() const;

    CalendarEdits m_edits;
    CalendarHeader *m_header;
    QStackedWidget *m_pages;
    TimeGridView *m_timeGrid;
    MonthGridView *m_month;
    CalendarTray *m_tray;
    QBoxLayout *m_row; // the page and the tray
};
