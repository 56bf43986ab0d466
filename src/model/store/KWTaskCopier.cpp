#include "model/store/KWTaskCopier.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskCopies.h"
#include "model/store/TaskPermissions.h"

#include <QHash>

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

// Half-way to the next task of the list; when there is no room left, all behind it make some.
void placeBehind(KWTask &task, KWTask &copy)
{
    SqlCondition behind{.where =
                            "projectID = ? AND (sortOrder, id) > (?, (SELECT id FROM tasks WHERE sid = ?))"
                            " AND isDeleted = 0 AND isTrashed = 0",
                        .values = {task->projectID, task->sortOrder, task.sid()},
                        .orderBy = "sortOrder, id",
                        .limit = 1};
    const QList<KWTaskModel> next = task.context().models<KWTask>(behind);
    const std::int64_t end = next.isEmpty() ? task->sortOrder + 2 * KWSortOrderStep : next.first().sortOrder;
    KWEntitySortOrder::update(copy, std::midpoint(task->sortOrder, end));
    if (copy->sortOrder > task->sortOrder) return;
    behind.limit = -1;
    resetSortOrderIfNeeded(QList<KWTask *>{&task, &copy} + task.context().fetch<KWTask>(behind));
}

void copyDescendants(KWTask &task, KWTask &copy)
{
    QHash<QString, KWTask *> copies{{task.sid(), &copy}};
    for (const KWTask *each : KWTask::descendantTasks(task, KWTask::Closed::LeaveOut, task.context())) {
        KWTask *parent = copies.value((*each)->parentId);
        if (!parent) continue;
        KWTask &child = openCopy(*each);
        child.set(&KWTaskModel::parentId, parent->sid());
        parent->set(&KWTaskModel::childIds, (*parent)->childIds + QStringList{child.sid()});
        copies.insert(each->sid(), &child);
    }
}

} // namespace

Result<QString> KWTaskCopier::copy(const QString &taskID)
{
    m_center.post(KWWillDuplicateTaskNotification, taskID);
    QString copyID;
    const auto duplicate = [&](ObjectContext &context) -> Result<void> {
        KWTask *task = context.find<KWTask>(taskID);
        if (const Result<void> allowed = mayChangeOutsideTrash(task); !allowed) return allowed;
        KWTask &copy = openCopy(*task);
        placeBehind(*task, copy);
        copyDescendants(*task, copy);
        copy.attachBehind(*task);
        copyID = copy.sid();
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(duplicate);
    if (!saved) return saved.error();
    return copyID;
}
