#pragma once

#include "lists/TaskWhereabouts.h"
#include "views/addfield/AddFieldController.h"
#include "views/main/MainWindowRooms.h"
#include "views/tasklist/ArrangeController.h"
#include "views/tasklist/PageMenu.h"
#include "views/tasklist/SectionController.h"
#include "views/tasklist/SortMenu.h"
#include "views/tasklist/TaskListController.h"
#include "views/tasklist/TaskMenu.h"
#include "views/trash/TrashController.h"

class BatchActions;
class KWTaskEditor;
class MainWindow;

/// The middle column at work: the rows of the selected list, the field above them, and what is done to them.
/// Main thread.
class ListColumn : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    ListColumn(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions, KWTaskEditor &editor);

    void show(const KWListIdentifier &list);
    /// Lists and tags may have other names now.
    void showNewNames() { m_tasks.showNewNames(); }
    /// Selects that list in the sidebar and the task in it.
    void showTask(const QString &taskID, const KWListIdentifier &list) { m_tasks.showTask(taskID, list); }
    /// The keyboard goes to the rows.
    void takeKeyboard();

private:
    void connectRows();
    void connectActions();
    void connectMessages();
    void fillRowMenu(QMenu &menu, const QStringList &taskIDs);
    void remove(const QStringList &taskIDs);
    std::function<void()> takingBack(const UndoToken &done);
    void showAdded(const QString &taskID, const UndoToken &undo);
    void showAddedSeveral(const QStringList &taskIDs, const UndoToken &undo);

    MainWindow &m_window;
    KWCoreDataManager &m_manager;
    CXClock &m_clock;
    KWTaskListService &m_service;
    BatchActions &m_actions;
    TaskListController m_tasks;
    TaskMenu m_taskMenu;
    SortMenu m_sortMenu;
    PageMenu m_pageMenu;
    AddFieldController m_addField;
    ArrangeController m_arrange;
    SectionController m_sections;
    TrashController m_trash;
    TaskWhereabouts m_whereabouts;
};
