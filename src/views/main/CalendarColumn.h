#pragma once

#include "views/calendar/CalendarController.h"
#include "views/calendar/CalendarNavigator.h"
#include "views/calendar/CalendarTrayReader.h"
#include "views/main/MainWindowRooms.h"

class DetailColumn;
class MainWindow;

/// The calendar at work, in place of list and detail; a task that is opened is a sheet over it. Main thread.
class CalendarColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it. `detail` shows the task that is selected.
    CalendarColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                   DetailColumn &detail);

    void show();
    void hide();
    /// The search page stands in place of the list: that comes to the front for it, and goes again.
    void giveWayToSearch();
    void comeBackFromSearch();
    void setKind(CalendarPage::Kind kind) { m_navigator.setKind(kind); }
    /// Goes to the day of the event and selects it there, while the calendar is shown.
    void showEvent(const QString &eventID, Instant start);

Q_SIGNALS:
    /// As CalendarController has them.
    void habitOpened(const QString &habitID, Day day, const QRect &place);
    void focusOpened();
    void habitChecked(const QString &habitID, Day day, bool takesBack);

private:
    void connectTray(BatchActions &actions);
    void showSelected();

    CXClock &m_clock;
    MainWindow &m_window;
    DetailColumn &m_detail;
    KWTaskEditor m_editor;
    CalendarNavigator m_navigator;
    CalendarController m_controller;
    CalendarTrayReader m_tray;
    bool m_isChosen = false; // in the sidebar
};
