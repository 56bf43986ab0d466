#include "views/main/FocusColumn.h"

#include "views/focus/FocusPane.h"
#include "views/focus/FocusSideView.h"
#include "views/main/MainWindow.h"

#include <utility>

FocusColumn::FocusColumn(const MainWindowRooms &rooms, MainWindow &window) : m_window(window)
{
    FocusPane &pane = window.focusPane();
    pane.setPresenter(rooms.focus);
    connect(&pane, &FocusPane::preferencesRequested, this, &FocusColumn::preferencesRequested);
    connect(&pane, &FocusPane::windowRequested, this, &FocusColumn::windowRequested);
}

void FocusColumn::show()
{
    m_isChosen = true;
    m_window.setFocusShown(true);
}

void FocusColumn::hide()
{
    if (std::exchange(m_isChosen, false)) m_window.setFocusShown(false);
}

void FocusColumn::giveWayToSearch()
{
    if (m_isChosen) m_window.setFocusShown(false);
}

void FocusColumn::comeBackFromSearch()
{
    if (m_isChosen) m_window.setFocusShown(true);
}
