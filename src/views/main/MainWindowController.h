#pragma once

#include "app/ports/WindowPorts.h"
#include "capture/NewTaskService.h"
#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"

#include <QObject>

#include <memory>

class MainWindow;
class OrvaneKit;

/// The main window with everything in it, made when it is first shown and dropped when it closes.
/// Main thread.
class MainWindowController : public QObject, public MainWindowPort {
    Q_OBJECT

public:
    /// The rooms that the window shows; all outlive it.
    struct Rooms {
        OrvaneKit &kit;
        CXClock &clock;
        KWProjectListPresenter &sidebar;
        KWTaskListService &tasks;
        NewTaskService &newTasks;
    };

    explicit MainWindowController(Rooms rooms);
    ~MainWindowController() override;

    void show() override;
    void close() override;
    bool isShown() const { return m_content != nullptr; }

    /// None while it is not shown.
    MainWindow *window() const;
    /// Shows the list, for links and pictures.
    void select(const KWListIdentifier &list);

Q_SIGNALS:
    /// The person closed the window.
    void windowClosed();

private:
    struct Content;

    void make();
    void connectColumns();

    Rooms m_rooms;
    std::unique_ptr<Content> m_content;
};
