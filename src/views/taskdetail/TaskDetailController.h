#pragma once

#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/store/KWTaskEditor.h"

#include <QObject>

class OrvaneKit;
class TaskDetailView;

/// Joins the detail pane with the selected task: shows it, saves what is edited, and follows changes
/// made elsewhere. Main thread.
class TaskDetailController : public QObject {
    Q_OBJECT

public:
    TaskDetailController(TaskDetailView &view, OrvaneKit &kit);

    /// Shows that task, or nothing for an empty id. What was being edited before is saved first.
    void show(const QString &taskID);

Q_SIGNALS:
    /// The checkbox of the detail: as a click on the row's.
    void completionToggled(const QString &taskID);
    void failed(const QString &sentence);
    /// An item of the checklist is to go: `remove` takes it out of the store, `restore` puts it back.
    void itemRemovalRequested(const std::function<void()> &remove, const std::function<void()> &restore);

private:
    void refresh();
    void connectEdits();
    void report(const Result<void> &saved);

    TaskDetailView &m_view;
    OrvaneKit &m_kit;
    KWTaskEditor m_editor;
    QString m_taskID;
    KWEventBus::Registration m_registration;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
