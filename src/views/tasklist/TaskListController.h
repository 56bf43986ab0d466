#pragma once

#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "model/store/KWTaskEditor.h"
#include "views/tasklist/ShownRows.h"

#include <QObject>

class TaskListPane;

/// Joins the middle column with the rooms: shows the rows of the selected list, keeps title, date and names
/// true. Main thread.
class TaskListController : public QObject {
    Q_OBJECT

public:
    TaskListController(TaskListPane &pane, KWTaskListService &service, KWProjectListPresenter &sidebar,
                       KWTaskEditor &editor, KWNotificationCenter &center, CXClock &clock);
    ~TaskListController() override;

    /// Shows that list.
    void show(const KWListIdentifier &list);
    /// Lists and tags may have other names now.
    void showNewNames();
    /// Selects that list in the sidebar and the task in it, as soon as its row is there.
    void showTask(const QString &taskID, const KWListIdentifier &list);
Q_SIGNALS:
    /// The list or its rows are other ones now.
    void shown();
    void failed(const QString &sentence);

private:
    void showRows();
    void selectWantedTask();
    void showHead();
    void showEmptyText(const QString &title);
    void showNames();

    TaskListPane &m_pane;
    KWTaskListService &m_service;
    ShownRows m_rows;
    bool m_isAnotherListComing = false;
    KWProjectListPresenter &m_sidebar;
    KWTaskEditor &m_editor;
    CXClock &m_clock;
    QString m_wantedTask; // to be selected when its row is there
    std::vector<KWNotificationCenter::Observation> m_observations;
};
