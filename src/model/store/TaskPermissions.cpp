#include "model/store/TaskPermissions.h"

#include "model/records/KWProject.h"
#include "model/store/StoreFailure.h"

namespace {

Error mayOnlyBeRead(const KWProject &list)
{
    return {storeText("The list “%1” may only be read.").arg(list->name)};
}

const KWTask *ownerOf(const KWChecklistItem &item) { return item.context().find<KWTask>(item->taskID); }

} // namespace

Result<void> mayChange(const KWTask *task)
{
    if (!task || task->isDeleted()) return Error{storeText("There is no such task any more.")};
    const KWProject *list = task->project();
    if (list && !list->isWritable()) return mayOnlyBeRead(*list);
    return {};
}

Result<void> mayChange(const QList<KWTask *> &tasks)
{
    Result<void> allowed;
    for (const KWTask *each : tasks)
        if (allowed) allowed = mayChange(each);
    return allowed;
}

Result<void> mayChangeOutsideTrash(const KWTask *task)
{
    const Result<void> allowed = mayChange(task);
    if (allowed && (*task)->isTrashed) return Error{storeText("This task is in the trash.")};
    return allowed;
}

Result<void> mayChangeOutsideTrash(const QList<KWTask *> &tasks)
{
    Result<void> allowed;
    for (const KWTask *each : tasks)
        if (allowed) allowed = mayChangeOutsideTrash(each);
    return allowed;
}

Result<void> mayChangeItem(const KWChecklistItem *item)
{
    if (!item) return Error{storeText("There is no such item any more.")};
    return mayChange(ownerOf(*item));
}

Result<void> mayChangeOutsideTrash(const QList<KWChecklistItem *> &items)
{
    Result<void> allowed;
    for (const KWChecklistItem *each : items)
        if (allowed) allowed = mayChangeOutsideTrash(ownerOf(*each));
    return allowed;
}

Result<void> mayTakeTasks(const KWProject *list)
{
    if (!list || list->isDeleted()) return Error{storeText("There is no such list any more.")};
    if (list->isClosed()) return Error{storeText("The list “%1” is archived.").arg((*list)->name)};
    if (!list->isWritable()) return mayOnlyBeRead(*list);
    return {};
}
