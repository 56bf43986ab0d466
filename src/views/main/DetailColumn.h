#pragma once

#include "views/main/MainWindowRooms.h"
#include "views/taskdetail/TaskDetailController.h"

class MainWindow;
class ToastPort;

/// The right column at work: the task that is selected, and where it leads to. Main thread.
class DetailColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it. `toasts` offers to take back what is removed.
    DetailColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions, ToastPort &toasts);

    TaskDetailController &task() { return m_task; }
    /// The keyboard goes to the list, if it is here.
    void giveKeyboardBack();

Q_SIGNALS:
    /// A link of the program in a text.
    void linkRequested(const QString &link);

private:
    /// A subtask or a parent of the task on show.
    void showOther(const QString &taskID);

    MainWindow &m_window;
    TaskDetailController m_task;
};
