#pragma once

#include "corvexkit/time/CXClock.h"
#include "views/menu/MainMenu.h"

class FocusPresenter;
class KWAccountManager;
class KWProjectListPresenter;
class MainWindow;
class TaskDetailController;
class BatchActions;
class SelectedTasks;

/// What the commands of the main menu do in the main window: on the selected tasks, on the list, on the
/// text that is being edited. Main thread.
class MainWindowCommands : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        MainMenu &menu;
        MainWindow &window;
        BatchActions &tasks;
        const SelectedTasks &selected;
        TaskDetailController &detail; ///< of the current one of them
        KWProjectListPresenter &sidebar;
        KWAccountManager &account;
        FocusPresenter &focus;
        CXClock &clock;
    };
    explicit MainWindowCommands(const Parts &parts);
    ~MainWindowCommands() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    template <class Action>
    void on(MenuCommand command, Action action)
    {
        m_parts.menu.handle(command, *this, std::move(action));
    }
    void connectTaskCommands();
    void connectEditing();
    void connectLists();
    void connectFocus();

    void addTask();
    /// What the commands for dates act on: the checklist item in the detail that has the keyboard, else what
    /// is selected.
    QStringList datedIDs() const;
    void pickDate();
    void print();
    void exportList();

    Parts m_parts;
};
