#include "model/store/KWTaskEditor.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "model/records/OneLine.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTagService.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskDays.h"
#include "model/store/TaskKindChange.h"
#include "model/store/TaskPermissions.h"

namespace {

template <class Record>
QList<typename Record::Model> modelsOf(const QList<Record *> &records)
{
    QList<typename Record::Model> models;
    for (const Record *each : records)
        models.append(each->model());
    return models;
}

bool isMemberOf(const KWProject &list, std::int64_t userServerID)
{
    return !list.context()
                .models<KWTeamworker>({.where = "projectID = ? AND userServerID = ? AND isDeleted = 0",
                                       .values = {list.sid(), userServerID},
                                       .limit = 1})
                .isEmpty();
}

} // namespace

std::optional<TaskWithParts> KWTaskEditor::read(const QString &taskID) const
{
    KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (!task || task->isDeleted()) return std::nullopt;
    return TaskWithParts{.task = task->model(),
                         .items = modelsOf(task->orderedChecklistItems()),
                         .subtasks = modelsOf(KWTask::children(*task, task->context())),
                         .attachments = modelsOf(task->attachments())};
}

Result<void> KWTaskEditor::save()
{
    ObjectContext &context = m_manager.MR_defaultContext();
    const Result<StoreChange> saved = context.save();
    if (saved) return {};
    context.rollback();
    return saved.error();
}

Result<void> KWTaskEditor::editTask(const QString &taskID, const std::function<void(KWTask &)> &edit)
{
    KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (const Result<void> allowed = mayChange(task); !allowed) return allowed;
    edit(*task);
    return save();
}

Result<UndoToken> KWTaskEditor::editUndoably(const QString &taskID, const std::function<void(KWTask &)> &edit)
{
    return tryUndoably(taskID, [&edit](KWTask &task) {
        edit(task);
        return Result<void>{};
    });
}

Result<UndoToken> KWTaskEditor::tryUndoably(const QString &taskID,
                                            const std::function<Result<void>(KWTask &)> &edit)
{
    UndoToken undo;
    Result<void> tried;
    const Result<void> edited = editTask(taskID, [&](KWTask &task) {
        tried = edit(task);
        if (!tried) return task.context().rollback();
        undo = UndoToken::of(task.context());
    });
    if (!tried) return tried.error();
    if (!edited) return edited.error();
    return undo;
}

Result<void> KWTaskEditor::setTitle(const QString &taskID, const QString &title)
{
    const QString line = onOneLine(title);
    if (line.isEmpty()) return Error{storeText("A task needs a title.")};
    return editTask(taskID, [&line](KWTask &task) { task.set(&KWTaskModel::title, line); });
}

Result<void> KWTaskEditor::setContent(const QString &taskID, const QString &content)
{
    return editTask(taskID, [&content](KWTask &task) {
        task.set(task.isChecklistKind() ? &KWTaskModel::desc : &KWTaskModel::content, content);
    });
}

Result<UndoToken> KWTaskEditor::setPriority(const QString &taskID, KWTaskPriority priority)
{
    return editUndoably(taskID, [priority](KWTask &task) { task.set(&KWTaskModel::priority, priority); });
}

Result<UndoToken> KWTaskEditor::setDay(const QString &taskID, Day day)
{
    return editUndoably(taskID, [day](KWTask &task) { moveToDay(task, day); });
}

Result<UndoToken> KWTaskEditor::clearDate(const QString &taskID)
{
    return editUndoably(taskID, [](KWTask &task) { clearDates(task); });
}

Result<UndoToken> KWTaskEditor::setSchedule(const QString &taskID, const TaskSchedule &chosen,
                                            const TaskSchedule &shown)
{
    if (const Result<void> checked = chosen.check(); !checked) return checked.error();
    return editUndoably(taskID, [&](KWTask &task) { chosen.applyTo(task, shown); });
}

Result<UndoToken> KWTaskEditor::setKind(const QString &taskID, KWTaskKind kind)
{
    return editUndoably(taskID, [kind](KWTask &task) { changeKind(task, kind); });
}

Result<UndoToken> KWTaskEditor::addTag(const QString &taskID, const QString &label)
{
    const Result<QString> checked = KWTagService::checkedLabel(label);
    if (!checked) return checked.error();
    return editUndoably(taskID, [&checked](KWTask &task) {
        const QString name = KWTag::nameForLabel(*checked);
        if (task->tags.contains(name)) return;
        KWTag::createNewTagWithName(*checked, task->userID, TagUniqueness::MayExist, task.context());
        task.set(&KWTaskModel::tags, task->tags + QStringList{name});
    });
}

Result<UndoToken> KWTaskEditor::setEstimate(const QString &taskID, int pomos, std::chrono::seconds duration)
{
    constexpr int most = 1000;
    if (pomos < 0 || pomos > most || duration.count() < 0 || duration > std::chrono::hours{most})
        return Error{storeText("An estimate is 1000 Pomos or 1000 hours at most.")};
    return editUndoably(taskID, [&](KWTask &task) {
        task.set(&KWTaskModel::estimatedPomo, pomos);
        task.set(&KWTaskModel::estimatedDuration, std::int64_t{duration.count()});
    });
}

Result<UndoToken> KWTaskEditor::setAssignee(const QString &taskID, std::int64_t userServerID)
{
    return tryUndoably(taskID, [userServerID](KWTask &task) -> Result<void> {
        const KWProject *list = task.project();
        if (userServerID != KWTaskAssignedToNobody && !(list && isMemberOf(*list, userServerID)))
            return Error{storeText("Only a member of the task's list can be assigned to it.")};
        task.set(&KWTaskModel::assignee, userServerID);
        return {};
    });
}

Result<UndoToken> KWTaskEditor::addSubtask(const QString &taskID, const QString &title)
{
    const QString line = onOneLine(title);
    if (line.isEmpty()) return Error{storeText("A task needs a title.")};
    return tryUndoably(taskID, [&line](KWTask &task) -> Result<void> {
        if (task.isNoteKind()) return Error{storeText("A note has no subtasks.")};
        if (task->isTrashed) return Error{storeText("This task is in the trash.")};
        KWTaskModel below;
        below.userID = task->userID;
        below.title = line;
        below.projectID = task->projectID;
        below.columnID = task->columnID;
        below.parentId = task.sid();
        if (const KWProject *list = task.project())
            below.sortOrder = list->sortOrderForNewTask(ListEnd::Bottom);
        const KWTask &made = task.context().insert<KWTask>(std::move(below));
        task.set(&KWTaskModel::childIds, task->childIds + QStringList{made.sid()});
        return {};
    });
}
