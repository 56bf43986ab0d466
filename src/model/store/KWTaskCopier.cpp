#include "model/store/KWTaskCopier.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTaskItemTree.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskCopies.h"
#include "model/store/TaskPermissions.h"

#include <algorithm>
#include <numeric>

namespace {

KWTask &openCopy(const KWTask &task)
{
    KWTaskModel model = freshCopy(task.model());
    model.status = KWTaskStatusOpen;
    model.completionDate.reset();
    model.repeatTaskID.clear();
    KWTask &copy = task.context().insert<KWTask>(std::move(model));
    copyChecklist(task, copy.sid());
    copyAttachments(task, copy.sid());
    return copy;
}

// The tasks of the list from `behind` on, with copies made just now, in their manual order.
QList<KWTask *> followers(const KWTask &task, const SqlCondition &behind)
{
    QList<KWTask *> found = task.context().fetch<KWTask>(behind);
    for (KWTask *each : task.context().inserted<KWTask>())
        if ((*each)->projectID == task->projectID && (*each)->sortOrder > task->sortOrder) found.append(each);
    std::ranges::stable_sort(found, {}, [](const KWTask *each) { return (*each)->sortOrder; });
    return found;
}

// Half-way to the next task of the list; when there is no room left, all behind it make some.
void placeBehind(KWTask &task, KWTask &copy)
{
    SqlCondition behind{.where =
                            "projectID = ? AND (sortOrder, id) > (?, (SELECT id FROM tasks WHERE sid = ?))"
                            " AND isDeleted = 0 AND isTrashed = 0",
                        .values = {task->projectID, task.storedVersion()->sortOrder, task.sid()},
                        .orderBy = "sortOrder, id",
                        .limit = 1};
    const QList<KWTask *> next = task.context().fetch<KWTask>(behind);
    const std::int64_t end =
        next.isEmpty() ? task->sortOrder + 2 * KWSortOrderStep : (*next.first())->sortOrder;
    KWEntitySortOrder::update(copy, std::midpoint(task->sortOrder, end));
    if (copy->sortOrder > task->sortOrder) return;
    behind.limit = -1;
    resetSortOrderIfNeeded(QList<KWTask *>{&task, &copy} + followers(task, behind));
}

KWTask &copyTree(KWTask &task)
{
    KWTask &copy = openCopy(task);
    placeBehind(task, copy);
    copyBelow(task, copy, KWTask::descendantTasks(task, KWTask::Closed::LeaveOut, task.context()), openCopy);
    copy.attachBehind(task);
    return copy;
}

} // namespace

Result<KWTaskCopier::Copied> KWTaskCopier::copy(const QStringList &taskIDs)
{
    for (const QString &each : taskIDs)
        m_center.post(KWWillDuplicateTaskNotification, each);
    Copied copied;
    const auto duplicate = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
        if (tasks.isEmpty()) return mayChange(nullptr);
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        for (KWTask *each : KWTaskItemForest::plant(tasks, context).rootTasks())
            copied.taskIDs.append(copyTree(*each).sid());
        copied.undo = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(duplicate);
    if (!saved) return saved.error();
    return copied;
}
