#pragma once

#include "calendar/CalendarPage.h"

#include <QWidget>

class IconButton;
class SegmentedControl;
class CalendarTitle;

/// The head of the calendar: which days are shown, what turns the pages, and how many days a page has. Where
/// it is narrow the button of the tray goes: the menu has it too. Its buttons take the keyboard by Tab alone.
class CalendarHeader : public QWidget {
    Q_OBJECT

public:
    explicit CalendarHeader(QWidget *parent = nullptr);

    void setPage(const CalendarPage &page);
    /// Where the menu of the calendar opens, and where one asks for a day.
    QWidget &menuButton() const;
    QWidget &titlePlace() const;
    void setTrayShown(bool isShown);

Q_SIGNALS:
    void mousePressed(); ///< on one of the buttons, before it does anything
    void pagesTurned(int pages);
    void todayRequested();
    void kindPicked(CalendarPage::Kind kind);
    void trayToggled();
    void menuRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    CalendarTitle *m_title;
    SegmentedControl *m_kinds;
    IconButton *m_tray;
    IconButton *m_menu;
};
