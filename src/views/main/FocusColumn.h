#pragma once

#include "views/focus/FocusRecordController.h"
#include "views/main/MainWindowRooms.h"

class MainWindow;

/// The page of focus at work, in place of the list, with the records beside it. Main thread.
class FocusColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    FocusColumn(const MainWindowRooms &rooms, MainWindow &window);

    void show();
    void hide();
    /// The search page stands in place of the list: that comes to the front for it, and goes again.
    void giveWayToSearch();
    void comeBackFromSearch();

Q_SIGNALS:
    void preferencesRequested();
    void windowRequested();
    void taskRequested(const QString &taskID);
    void habitRequested(const QString &habitID);

private:
    MainWindow &m_window;
    FocusRecordController m_records;
    bool m_isChosen = false; // in the sidebar
};
