#include "views/taskdetail/TaskDetailController.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "views/taskdetail/TaskDetailView.h"

TaskDetailController::TaskDetailController(TaskDetailView &view, OrvaneKit &kit)
    : m_view(view), m_kit(kit), m_editor(kit.manager())
{
    connectEdits();
    m_registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        const bool touchesTask = change.of(RecordKind::Task).updated.contains(m_taskID) ||
                                 change.of(RecordKind::Task).deleted.contains(m_taskID);
        if (touchesTask || change.touches(RecordKind::ChecklistItem) || change.touches(RecordKind::Project))
            refresh();
    });
    for (const QString &name : {KWNewMinuteComesNotification, KWUserSettingsDidChangeNotification,
                                KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification})
        m_observations.push_back(
            kit.center().addObserver(name, [this](const KWNotification &) { refresh(); }));
}

void TaskDetailController::show(const QString &taskID)
{
    m_view.commitEdits();
    m_taskID = taskID;
    refresh();
}

void TaskDetailController::refresh()
{
    const auto found = m_taskID.isEmpty() ? std::nullopt : m_editor.read(m_taskID);
    if (!found) {
        m_view.setTask(std::nullopt);
        return;
    }
    TaskDetailData data{
        .task = found->task, .items = found->items, .listName = {}, .listColor = {}, .tagLabels = {}};
    if (const KWProject *project = m_kit.context().find<KWProject>(found->task.projectID)) {
        data.listName = project->isInbox() ? KWSmartProject::inbox().displayName() : project->model().name;
        data.listColor = project->model().color;
    }
    for (const QString &name : found->task.tags)
        if (m_kit.tags().contains(name)) data.tagLabels.insert(name, m_kit.tags().labelOf(name));
    m_view.setTask(data);
}

void TaskDetailController::report(const Result<void> &saved)
{
    if (!saved) Q_EMIT failed(saved.error().sentence);
}

void TaskDetailController::connectEdits()
{
    connect(&m_view, &TaskDetailView::titleEdited, this,
            [this](const QString &title) { report(m_editor.setTitle(m_taskID, title)); });
    connect(&m_view, &TaskDetailView::contentEdited, this,
            [this](const QString &content) { report(m_editor.setContent(m_taskID, content)); });
    connect(&m_view, &TaskDetailView::completionToggled, this,
            [this] { Q_EMIT completionToggled(m_taskID); });
    connect(&m_view, &TaskDetailView::itemToggled, this,
            [this](const QString &itemID) { report(m_editor.tickItem(itemID)); });
    connect(&m_view, &TaskDetailView::itemTitleEdited, this,
            [this](const QString &itemID, const QString &title) {
                report(m_editor.setItemTitle(itemID, title));
            });
    connect(&m_view, &TaskDetailView::itemAdded, this, [this](const QString &afterID, const QString &title) {
        if (const Result<QString> added = m_editor.addItem(m_taskID, afterID, title); !added)
            Q_EMIT failed(added.error().sentence);
    });
    connect(&m_view, &TaskDetailView::itemRemoved, this, [this](const QString &itemID) {
        Q_EMIT itemRemovalRequested([this, itemID] { report(m_editor.removeItem(itemID)); },
                                    [this, itemID] { report(m_editor.restoreItem(itemID)); });
    });
}
