#pragma once

#include "lists/KWProjectListPresenter.h"
#include "lists/KWTaskListService.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskTicker.h"

#include <QObject>

class TaskListPane;

/// Joins the middle column with the rooms: shows the rows of the selected list, ticks tasks off, keeps
/// title, date and names true. Main thread.
class TaskListController : public QObject {
    Q_OBJECT

public:
    TaskListController(TaskListPane &pane, KWTaskListService &service, KWProjectListPresenter &sidebar,
                       KWTaskTicker &ticker, KWTaskEditor &editor, KWNotificationCenter &center,
                       CXClock &clock);
    ~TaskListController() override;

    /// Shows that list.
    void show(const KWListIdentifier &list);
    /// Selects that list in the sidebar and the task in it, as soon as its row is there.
    void showTask(const QString &taskID, const KWListIdentifier &list);
    /// Completes the task or reopens it.
    void tick(const QString &taskID);

Q_SIGNALS:
    /// The list or its rows are other ones now.
    void shown();
    /// A task was completed or reopened; `undo` takes it back.
    void statusChanged(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);

private:
    void showRows();
    void selectWantedTask();
    void showHead();
    void showEmptyText(const QString &title);
    void showNames();

    TaskListPane &m_pane;
    KWTaskListService &m_service;
    KWProjectListPresenter &m_sidebar;
    KWTaskTicker &m_ticker;
    KWTaskEditor &m_editor;
    CXClock &m_clock;
    QString m_wantedTask; // to be selected when its row is there
    std::vector<KWNotificationCenter::Observation> m_observations;
};
