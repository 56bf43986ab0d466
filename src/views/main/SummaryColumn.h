#pragma once

#include "views/main/MainWindowRooms.h"
#include "views/web/KWSummaryViewController.h"

class MainWindow;

/// The page of the summary in place of the list. Main thread.
class SummaryColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SummaryColumn(const MainWindowRooms &rooms, MainWindow &window);

    void show();
    void hide();
    /// The search page stands in place of the list: that comes to the front for it, and goes again.
    void giveWayToSearch();
    void comeBackFromSearch();

private:
    MainWindow &m_window;
    KWSummaryViewController m_summary;
    bool m_isChosen = false; // in the sidebar
};
