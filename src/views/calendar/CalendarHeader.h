#pragma once

#include "calendar/CalendarPage.h"

#include <QWidget>

class IconButton;
class CalendarTitle;
class QHBoxLayout;
class SegmentedControl;
class ShownButton;
class TextButton;

/// The head of the calendar: which days are shown, what turns the pages, how many days a page has and what is
/// on it. Where it is narrow the kinds of pages fold into a menu, and then buttons go whose work the menu of
/// the calendar has too. Its buttons take the keyboard by Tab alone.
class CalendarHeader : public QWidget {
    Q_OBJECT

public:
    explicit CalendarHeader(QWidget *parent = nullptr);

    void setPage(const CalendarPage &page);
    /// Where the menu of the calendar opens, and where one asks for a day.
    QWidget &menuButton() const;
    QWidget &titlePlace() const;
    QWidget &shownButton() const;
    /// Its sign: something is left out.
    void setHidesSomething(bool hides);
    void setTrayShown(bool isShown);

Q_SIGNALS:
    void mousePressed(); ///< on one of the buttons, before it does anything
    void pagesTurned(int pages);
    void todayRequested();
    void kindPicked(CalendarPage::Kind kind);
    void shownRequested();
    void trayToggled();
    void menuRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addWidgets(QWidget *before, QWidget *after);
    void connectKinds();
    void fit();

    CalendarTitle *m_title;
    TextButton *m_today;
    SegmentedControl *m_kinds;
    TextButton *m_kind; // in place of these, with a menu
    ShownButton *m_shown;
    IconButton *m_tray;
    IconButton *m_menu;
    QHBoxLayout *m_row;
};
