#include "views/taskdetail/TaskDetailController.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "views/taskdetail/SubtaskList.h"
#include "views/taskdetail/TaskDetailReader.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/BatchActions.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

bool matters(const StoreChange &change, const QString &taskID)
{
    for (const RecordKind kind :
         {RecordKind::Task, RecordKind::ChecklistItem, RecordKind::Attachment, RecordKind::Project,
          RecordKind::Tag, RecordKind::Teamworker, RecordKind::FocusSummary})
        if (change.touches(kind)) return !taskID.isEmpty();
    return false;
}

} // namespace

TaskDetailController::TaskDetailController(TaskDetailView &view, OrvaneKit &kit, BatchActions &common)
    : m_view(view)
    , m_kit(kit)
    , m_common(common)
    , m_editor(kit.manager())
    , m_actions(view, kit, common)
    , m_attachments(view, kit)
    , m_pendingDeletes(kit.center(),
                       [this] { m_nextTaskID && !isTypedIn() ? show(QString{*m_nextTaskID}) : refresh(); })
{
    connectEdits();
    connectActions();
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, const QWidget *now) { keyboardWent(now); });
    m_registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        if (matters(change, m_taskID)) refresh();
    });
    for (const QString &name :
         {KWNewMinuteComesNotification, KWUserSettingsDidChangeNotification, KWTagCacheDidUpdateNotification,
          KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification})
        m_observations.push_back(
            kit.center().addObserver(name, [this](const KWNotification &) { refresh(); }));
}

void TaskDetailController::show(const QString &taskID)
{
    m_nextTaskID.reset();
    m_view.commitEdits();
    m_taskID = taskID;
    refresh();
}

void TaskDetailController::follow(const QString &taskID)
{
    if (taskID != m_taskID && isTypedIn()) {
        m_nextTaskID = taskID;
        return;
    }
    // The task is gone: what is typed on goes nowhere rather than into another one.
    QWidget *focused = m_view.window()->focusWidget();
    if (taskID != m_taskID && focused && m_view.isAncestorOf(focused)) focused->clearFocus();
    show(taskID);
}

bool TaskDetailController::isTypedIn() const
{
    const QWidget *focused = m_view.window()->focusWidget();
    const KWTask *task = m_taskID.isEmpty() ? nullptr : m_kit.context().find<KWTask>(m_taskID);
    return focused && m_view.isAncestorOf(focused) && task && task->isNotDeleted() && !(*task)->isTrashed &&
           !m_pendingDeletes.containsTask(m_taskID);
}

void TaskDetailController::keyboardWent(const QWidget *there)
{
    // To a menu or another program it goes for a moment only.
    if (!m_nextTaskID || !there || there->window() != m_view.window() || m_view.isAncestorOf(there)) return;
    show(QString{*m_nextTaskID});
}

void TaskDetailController::refresh()
{
    std::optional<TaskDetailData> shown =
        m_taskID.isEmpty() ? std::nullopt : readTaskDetail(m_taskID, m_editor, m_kit);
    if (shown)
        shown->subtasks.removeIf(
            [this](const auto &each) { return m_pendingDeletes.containsTask(each.sid); });
    m_actions.setTask(shown.value_or(TaskDetailData{}));
    m_attachments.setTask(shown ? m_taskID : QString{});
    m_view.setTask(shown);
}

void TaskDetailController::report(const Result<void> &saving)
{
    if (saving)
        Q_EMIT saved();
    else
        Q_EMIT failed(saving.error().sentence);
}

void TaskDetailController::connectEdits()
{
    connect(&m_view, &TaskDetailView::titleEdited, this, [this](const QString &title) {
        const Result<void> saved = m_editor.setTitle(m_taskID, title);
        if (!saved) m_view.keepUnsavedTitle();
        report(saved);
    });
    connect(&m_view, &TaskDetailView::contentEdited, this, [this](const QString &content) {
        const Result<void> saved = m_editor.setContent(m_taskID, content);
        if (!saved) m_view.keepUnsavedContent();
        report(saved);
    });
    m_view.storeUnsaved = [this](const QString &taskID, const TaskDetailView::Unsaved &unsaved) {
        return store(taskID, unsaved);
    };
    connect(&m_view, &TaskDetailView::linkOpened, this, &TaskDetailController::openLink);
    connect(&m_view, &TaskDetailView::itemToggled, this,
            [this](const QString &itemID) { report(m_editor.tickItem(itemID)); });
    connect(&m_view, &TaskDetailView::itemTitleEdited, this,
            [this](const QString &itemID, const QString &title) {
                const Result<void> saved = m_editor.setItemTitle(itemID, title);
                if (!saved) m_view.checklist().keepUnsaved(itemID, {}, title);
                report(saved);
            });
    connect(&m_view, &TaskDetailView::itemAdded, this, [this](const QString &afterID, const QString &title) {
        const Result<QString> added = m_editor.addItem(m_taskID, afterID, title);
        if (!added) m_view.checklist().keepUnsaved({}, afterID, title);
        report(added ? Result<void>{} : added.error());
    });
    connect(&m_view, &TaskDetailView::itemRemoved, this, [this](const QString &itemID) {
        Q_EMIT itemRemovalRequested([this, itemID] { report(m_editor.removeItem(itemID)); },
                                    [this, itemID] { report(m_editor.restoreItem(itemID)); });
    });
    SubtaskList &subtasks = m_view.subtasks();
    connect(&subtasks, &SubtaskList::toggled, this,
            [this](const QString &taskID) { m_common.tick({taskID}); });
    connect(&subtasks, &SubtaskList::opened, this, &TaskDetailController::taskRequested);
    connect(&subtasks, &SubtaskList::added, this, [this, &subtasks](const QString &title) {
        const Result<UndoToken> added = m_editor.addSubtask(m_taskID, title);
        if (added) subtasks.clearField();
        report(added ? Result<void>{} : added.error());
    });
}

// A task that is gone has taken its texts along.
TaskDetailView::Unsaved TaskDetailController::store(const QString &taskID, TaskDetailView::Unsaved unsaved)
{
    const KWTask *task = m_kit.context().find<KWTask>(taskID);
    if (!task || !task->isNotDeleted()) return {};
    if (unsaved.title && m_editor.setTitle(taskID, *unsaved.title)) unsaved.title.reset();
    if (unsaved.content && m_editor.setContent(taskID, *unsaved.content)) unsaved.content.reset();
    unsaved.items.removeIf([&](const ChecklistView::UnsavedItem &each) {
        return each.sid.isEmpty() ? bool(m_editor.addItem(taskID, each.afterSid, each.title))
                                  : bool(m_editor.setItemTitle(each.sid, each.title));
    });
    if (!unsaved.subtask.isEmpty() && m_editor.addSubtask(taskID, unsaved.subtask)) unsaved.subtask.clear();
    return unsaved;
}

void TaskDetailController::connectActions()
{
    connect(&m_actions, &DetailActions::focusRequested, this, &TaskDetailController::focusRequested);
    connect(&m_actions, &DetailActions::taskRequested, this, &TaskDetailController::taskRequested);
    connect(&m_actions, &DetailActions::summaryRequested, this, &TaskDetailController::summaryRequested);
    connect(&m_actions, &DetailActions::filesRequested, &m_attachments, &AttachmentActions::chooseFiles);
    const auto connectReports = [this](auto &actions) {
        using Actions = std::remove_reference_t<decltype(actions)>;
        connect(&actions, &Actions::changed, this, &TaskDetailController::changed);
        connect(&actions, &Actions::failed, this, &TaskDetailController::failed);
        connect(&actions, &Actions::saved, this, &TaskDetailController::saved);
    };
    connectReports(m_actions);
    connectReports(m_attachments);
}

void TaskDetailController::openLink(const QString &address)
{
    if (address.startsWith(u"orvane:"_s, Qt::CaseInsensitive)) return Q_EMIT linkRequested(address);
    const QUrl url = QUrl::fromUserInput(address);
    // Nothing in a text starts a program or opens a file.
    const bool isSafe = url.scheme() == u"http" || url.scheme() == u"https" || url.scheme() == u"mailto";
    if (!isSafe || !QDesktopServices::openUrl(url))
        Q_EMIT failed(tr("The link “%1” cannot be opened.").arg(address));
}
