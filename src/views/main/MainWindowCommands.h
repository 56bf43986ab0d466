#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/store/KWTaskEditor.h"
#include "views/menu/MainMenu.h"

class KWAccountManager;
class KWCoreDataManager;
class KWProjectListPresenter;
class MainWindow;
class TaskListController;

/// What the commands of the main menu do in the main window: on the selected task, on the list, on the
/// text that is being edited. Main thread.
class MainWindowCommands : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        MainMenu &menu;
        MainWindow &window;
        TaskListController &tasks;
        KWProjectListPresenter &sidebar;
        KWTaskEditor &editor;
        KWCoreDataManager &manager;
        KWAccountManager &account;
        CXClock &clock;
    };
    explicit MainWindowCommands(const Parts &parts);
    ~MainWindowCommands() override;

Q_SIGNALS:
    /// A task was changed; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);

private:
    template <class Action>
    void on(MenuCommand command, Action action)
    {
        m_parts.menu.handle(command, *this, std::move(action));
    }
    void connectTaskCommands();
    void connectEditing();
    void connectLists();

    QString selectedTask() const;
    void addTask();
    void setPriority(KWTaskPriority priority);
    void setDay(const QString &taskID, Day day);
    void clearDate(const QString &taskID);
    void pickDate();
    void print();
    void report(const Result<UndoToken> &done, const QString &message);

    Parts m_parts;
};
