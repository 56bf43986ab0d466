#include "views/main/SummaryColumn.h"

#include "views/main/MainWindow.h"

#include <utility>

SummaryColumn::SummaryColumn(const MainWindowRooms &rooms, MainWindow &window)
    : m_window(window), m_summary{rooms.kit, rooms.clock, rooms.web, window.summaryPane()}
{
    connect(&m_summary, &KWSummaryViewController::told, &window, &MainWindow::showMessage);
}

void SummaryColumn::show()
{
    m_isChosen = true;
    m_window.setSummaryShown(true);
}

void SummaryColumn::hide()
{
    if (std::exchange(m_isChosen, false)) m_window.setSummaryShown(false);
}

void SummaryColumn::giveWayToSearch()
{
    if (m_isChosen) m_window.setSummaryShown(false);
}

void SummaryColumn::comeBackFromSearch()
{
    if (m_isChosen) m_window.setSummaryShown(true);
}
