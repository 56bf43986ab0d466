#include "views/main/HabitColumn.h"

#include "views/focus/FocusPresenter.h"
#include "views/habits/HabitDetailView.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitNoteList.h"
#include "views/habits/HabitPane.h"
#include "views/main/MainWindow.h"

HabitColumn::HabitColumn(const MainWindowRooms &rooms, MainWindow &window)
    : m_window(window)
    , m_checks{rooms.kit}
    , m_navigator{window.habitPane(), window.habitDetail(), rooms.kit}
    , m_checkIns{rooms.kit, m_checks, window}
    , m_controller{{window.habitPane(), rooms.kit, m_navigator, m_checkIns, window}}
{
    const HabitListView &list = window.habitPane().list();
    connect(&list, &HabitListView::dayClicked, &m_checkIns, &HabitCheckIns::clickDay);
    connect(&list, &HabitListView::dayOpened, &m_checkIns, &HabitCheckIns::openDay);
    connect(&list, &HabitListView::checkRequested, &m_checkIns, &HabitCheckIns::check);
    connect(&m_navigator, &HabitNavigator::failed, &window, &MainWindow::showMessage);
    connect(&m_checkIns, &HabitCheckIns::changed, &window, &MainWindow::showUndo);
    connect(&m_checkIns, &HabitCheckIns::failed, &window, &MainWindow::showMessage);
    connect(&m_controller, &HabitController::changed, &window, &MainWindow::showUndo);
    connect(&m_controller, &HabitController::failed, &window, &MainWindow::showMessage);
    connect(&m_controller, &HabitController::focusRequested, &rooms.focus,
            [&focus = rooms.focus](const QString &habitID, KWFocusType mode) {
                focus.startOn(FocusTarget::habit(habitID), mode);
            });
    connect(&m_controller, &HabitController::opened, &window, &MainWindow::openDetail);
    connectDetail();
}

void HabitColumn::connectDetail()
{
    const HabitDetailView &detail = m_window.habitDetail();
    const auto current = [this] { return m_window.habitPane().list().currentHabit(); };
    connect(&detail, &HabitDetailView::dayChosen, this,
            [this, current](Day day, const QRect &place) { m_checkIns.clickDay(current(), day, place); });
    connect(&detail, &HabitDetailView::checkRequested, this,
            [this, current](Day day, bool takesBack) { m_checkIns.check(current(), day, takesBack); });
    connect(&detail, &HabitDetailView::restoreRequested, this,
            [this, current] { m_controller.setArchived(current(), false); });
    m_window.habitDetail().notes().setStore([this](const QString &habitID, Day day, const QString &note) {
        return m_checkIns.setNote(habitID, day, note);
    });
    connect(&detail, &HabitDetailView::closeRequested, &m_window, &MainWindow::closeDetailSheet);
}

void HabitColumn::show()
{
    m_isChosen = true;
    m_window.setHabitsShown(true);
    m_navigator.open();
}

void HabitColumn::hide()
{
    if (!std::exchange(m_isChosen, false)) return;
    m_navigator.close();
    m_window.setHabitsShown(false);
}

void HabitColumn::giveWayToSearch()
{
    if (m_isChosen) m_window.setHabitsShown(false);
}

void HabitColumn::comeBackFromSearch()
{
    if (m_isChosen) m_window.setHabitsShown(true);
}

void HabitColumn::check(const QString &habitID, bool takesBack)
{
    m_checkIns.check(habitID, m_navigator.today(), takesBack);
}

void HabitColumn::takeKeyboard()
{
    if (m_window.habitPane().content().hasHabits())
        m_window.habitPane().list().takeKeyboard();
    else
        m_window.habitPane().setFocus(Qt::OtherFocusReason);
}
