#include "model/store/TaskBatch.h"

#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskDays.h"
#include "model/store/TaskKindChange.h"
#include "model/store/TaskPermissions.h"

Result<UndoToken> TaskBatch::edit(const QStringList &taskIDs, const std::function<void(KWTask &)> &change)
{
    UndoToken token;
    const auto changeAll = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
        if (tasks.isEmpty()) return mayChange(nullptr);
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        for (KWTask *each : tasks)
            change(*each);
        token = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(changeAll);
    if (!saved) return saved.error();
    return token;
}

Result<UndoToken> TaskBatch::setDay(const QStringList &taskIDs, Day day)
{
    return edit(taskIDs, [day](KWTask &task) { moveToDay(task, day); });
}

Result<UndoToken> TaskBatch::clearDate(const QStringList &taskIDs) { return edit(taskIDs, clearDates); }

Result<UndoToken> TaskBatch::setPriority(const QStringList &taskIDs, KWTaskPriority priority)
{
    return edit(taskIDs, [priority](KWTask &task) { task.set(&KWTaskModel::priority, priority); });
}

Result<UndoToken> TaskBatch::setTag(const QStringList &taskIDs, const QString &tag, Tagging tagging)
{
    return edit(taskIDs, [&tag, tagging](KWTask &task) {
        QStringList tags = task->tags;
        if (tagging == Tagging::Remove)
            tags.removeAll(tag);
        else if (!tags.contains(tag))
            tags.append(tag);
        task.set(&KWTaskModel::tags, tags);
    });
}

Result<UndoToken> TaskBatch::setPinned(const QStringList &taskIDs, Pinning pinning)
{
    return edit(taskIDs, [pinning](KWTask &task) {
        if (pinning == Pinning::Unpin)
            task.unpin();
        else if (!task.isPinned())
            task.pin(task.context().clock().now());
    });
}

Result<UndoToken> TaskBatch::setKind(const QStringList &taskIDs, KWTaskKind kind)
{
    return edit(taskIDs, [kind](KWTask &task) { changeKind(task, kind); });
}
