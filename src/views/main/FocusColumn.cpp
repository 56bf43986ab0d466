#include "views/main/FocusColumn.h"

#include "views/focus/FocusPane.h"
#include "views/focus/FocusSideView.h"
#include "views/main/MainWindow.h"

#include <utility>

FocusColumn::FocusColumn(const MainWindowRooms &rooms, MainWindow &window)
    : m_window(window), m_records{{window.focusSide(), rooms.focus, window}}
{
    FocusPane &pane = window.focusPane();
    pane.setPresenter(rooms.focus);
    connect(&pane, &FocusPane::preferencesRequested, this, &FocusColumn::preferencesRequested);
    connect(&pane, &FocusPane::windowRequested, this, &FocusColumn::windowRequested);
    connect(&m_records, &FocusRecordController::changed, &window, &MainWindow::showUndo);
    connect(&m_records, &FocusRecordController::failed, &window, &MainWindow::showMessage);
    connect(&m_records, &FocusRecordController::targetRequested, this, [this](const FocusTarget &target) {
        target.kind == FocusTarget::Kind::Habit ? Q_EMIT habitRequested(target.entityID)
                                                : Q_EMIT taskRequested(target.entityID);
    });
}

void FocusColumn::show()
{
    m_isChosen = true;
    m_window.setFocusShown(true);
    m_records.open();
}

void FocusColumn::hide()
{
    if (!std::exchange(m_isChosen, false)) return;
    m_records.close();
    m_window.setFocusShown(false);
}

void FocusColumn::giveWayToSearch()
{
    if (m_isChosen) m_window.setFocusShown(false);
}

void FocusColumn::comeBackFromSearch()
{
    if (m_isChosen) m_window.setFocusShown(true);
}
