#include "model/store/TaskBatch.h"

#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskDays.h"
#include "model/store/TaskKindChange.h"
#include "model/store/TaskPermissions.h"

Result<UndoToken> TaskBatch::edit(const QStringList &ids, const ToTask &toTask, const ToItem &toItem)
{
    UndoToken token;
    const auto changeAll = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(ids, context);
        const auto items = toItem ? findStored<KWChecklistItem>(ids, context) : QList<KWChecklistItem *>{};
        if (tasks.isEmpty() && items.isEmpty()) return mayChange(nullptr);
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        if (const Result<void> allowed = mayChangeOutsideTrash(items); !allowed) return allowed;
        for (KWTask *each : tasks)
            toTask(*each);
        for (KWChecklistItem *each : items)
            toItem(*each);
        token = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(changeAll);
    if (!saved) return saved.error();
    return token;
}

Result<UndoToken> TaskBatch::setDay(const QStringList &ids, Day day)
{
    const auto move = [day](auto &each) { moveToDay(each, day); };
    return edit(ids, move, move);
}

Result<UndoToken> TaskBatch::clearDate(const QStringList &ids)
{
    const auto clear = [](auto &each) { clearDates(each); };
    return edit(ids, clear, clear);
}

Result<UndoToken> TaskBatch::remove(const QStringList &ids)
{
    return edit(
        ids, [](KWTask &task) { KWTask::trashTaskAndDescendants({&task}, task.context()); },
        [](KWChecklistItem &item) { item.markDelete(); });
}

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
