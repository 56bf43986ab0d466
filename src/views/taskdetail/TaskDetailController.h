#pragma once

#include "model/events/KWEventBus.h"
#include "model/events/PendingDeletes.h"
#include "model/store/KWTaskEditor.h"
#include "views/taskdetail/AttachmentActions.h"
#include "views/taskdetail/DetailActions.h"
#include "views/taskdetail/TaskDetailView.h"

#include <QObject>

class OrvaneKit;
class BatchActions;

/// Joins the detail pane with the selected task: shows it, saves what is edited, and follows changes
/// made elsewhere. Main thread.
class TaskDetailController : public QObject {
    Q_OBJECT

public:
    TaskDetailController(TaskDetailView &view, OrvaneKit &kit, BatchActions &common);

    /// Shows that task, or nothing for an empty id. What was being edited before is saved first.
    void show(const QString &taskID);
    /// The task that is current beside the pane is that one now. While somebody types in the pane it stays
    /// with its own task, as long as that is there, and goes to the other one when the keyboard leaves it.
    void follow(const QString &taskID);
    /// The task with which it stays meanwhile; none while it shows the one that is current beside it.
    std::optional<QString> heldTask() const { return m_nextTaskID ? std::optional{m_taskID} : std::nullopt; }
    /// Asks for the dates of the task on show in a frame whose corner is there.
    void pickDate(const QPoint &position) { m_actions.pickDate(position); }

Q_SIGNALS:
    void failed(const QString &sentence);
    /// What was asked for is saved: a failure before is over.
    void saved();
    /// The task is another one now; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);
    /// Another task is to be shown: a subtask, a parent.
    void taskRequested(const QString &taskID);
    void focusRequested(const QString &taskID, KWFocusType mode);
    /// A summary is to be put into the text, see TaskDetailView::insertIntoContent().
    void summaryRequested();
    /// A link in the text that leads into the program.
    void linkRequested(const QString &link);
    /// An item of the checklist is to go: `remove` takes it out of the store, `restore` puts it back.
    void itemRemovalRequested(const std::function<void()> &remove, const std::function<void()> &restore);

private:
    void refresh();
    bool isTypedIn() const;
    void keyboardWent(const QWidget *there);
    void connectEdits();
    TaskDetailView::Unsaved store(const QString &taskID, TaskDetailView::Unsaved unsaved);
    void connectActions();
    void openLink(const QString &address);
    void report(const Result<void> &saving);

    TaskDetailView &m_view;
    OrvaneKit &m_kit;
    BatchActions &m_common;
    KWTaskEditor m_editor;
    DetailActions m_actions;
    AttachmentActions m_attachments;
    QString m_taskID;
    std::optional<QString> m_nextTaskID; // once the keyboard leaves the pane
    PendingDeletes m_pendingDeletes;
    KWEventBus::Registration m_registration;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
