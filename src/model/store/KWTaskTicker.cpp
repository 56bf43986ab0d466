#include "model/store/KWTaskTicker.h"

#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

Result<KWTaskStatus> KWTaskTicker::tick(const QString &taskID)
{
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    const bool isOpen = task && task->model().status == KWTaskStatusOpen;
    return updateStatus(isOpen ? KWTaskStatusCompleted : KWTaskStatusOpen, taskID);
}

Result<KWTaskStatus> KWTaskTicker::updateStatus(KWTaskStatus status, const QString &taskID)
{
    ObjectContext &context = m_manager.MR_defaultContext();
    KWTask *task = context.find<KWTask>(taskID);
    if (!task || task->isDeleted()) return Error{storeText("There is no such task any more.")};
    if (task->model().status == status) return status;
    task->updateStatus(status);
    const Result<StoreChange> saved = context.save();
    if (!saved) {
        context.rollback();
        return saved.error();
    }
    return status;
}
