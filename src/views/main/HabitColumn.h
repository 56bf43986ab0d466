#pragma once

#include "habits/KWHabitCheckHelper.h"
#include "views/habits/HabitCheckIns.h"
#include "views/habits/HabitController.h"
#include "views/habits/HabitNavigator.h"
#include "views/main/MainWindowRooms.h"

class MainWindow;

/// The habits at work, in place of the list, with the detail of the selected one beside them. Main thread.
class HabitColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    HabitColumn(const MainWindowRooms &rooms, MainWindow &window);

    void show();
    void hide();
    /// The search page stands in place of the list: that comes to the front for it, and goes again.
    void giveWayToSearch();
    void comeBackFromSearch();
    /// Selects it, also before show().
    void showHabit(const QString &habitID) { m_navigator.showHabit(habitID); }
    /// One check more of today, or one taken back.
    void check(const QString &habitID, bool takesBack);
    /// For days that are clicked or checked elsewhere.
    HabitCheckIns &checkIns() { return m_checkIns; }
    void takeKeyboard();

private:
    void connectDetail();

    MainWindow &m_window;
    KWHabitCheckHelper m_checks;
    HabitNavigator m_navigator;
    HabitCheckIns m_checkIns;
    HabitController m_controller;
    bool m_isChosen = false; // in the sidebar
};
