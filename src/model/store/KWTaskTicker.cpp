#include "model/store/KWTaskTicker.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/OccurrenceSteps.h"
#include "model/store/TaskPermissions.h"

namespace {

// Answers where a task that repeats went on to.
std::optional<TaskRepetition> apply(KWTaskStatus status, KWTask &task)
{
    const KWTaskStatus before = task->status;
    if (before == status) return std::nullopt;
    const auto next = before == KWTaskStatusOpen ? nextRepetition(task) : std::nullopt;
    if (next) {
        leaveClosedCopy(task, status);
        goOnTo(task, *next);
    } else if (before == KWTaskStatusOpen) {
        closeWithSubtasks(task, status);
    } else {
        task.updateStatus(status);
    }
    return next;
}

} // namespace

Result<KWTaskTicker::Ticked> KWTaskTicker::tick(const QStringList &ids)
{
    ObjectContext &context = m_manager.MR_defaultContext();
    QStringList openOnes;
    const auto collect = [&openOnes](const auto &records) {
        for (const auto *each : records)
            if ((*each)->status == KWTaskStatusOpen) openOnes.append(each->sid());
    };
    collect(findAll<KWTask>(ids, context));
    collect(findStored<KWChecklistItem>(ids, context));
    return openOnes.isEmpty() ? updateStatus(KWTaskStatusOpen, ids)
                              : updateStatus(KWTaskStatusCompleted, openOnes);
}

Result<KWTaskTicker::Ticked> KWTaskTicker::updateStatus(KWTaskStatus status, const QStringList &ids)
{
    Ticked ticked{status};
    const auto update = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(ids, context);
        const bool takesItems = status != KWTaskStatusAbandoned;
        const auto items =
            takesItems ? findStored<KWChecklistItem>(ids, context) : QList<KWChecklistItem *>{};
        if (tasks.isEmpty() && items.isEmpty()) return mayChange(nullptr);
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        if (const Result<void> allowed = mayChangeOutsideTrash(items); !allowed) return allowed;
        for (KWChecklistItem *each : items) // before a task that repeats leaves a copy with its ticks
            if ((*each)->status != status) each->updateStatus(status);
        for (KWTask *each : tasks)
            if (const auto next = apply(status, *each)) ticked.nextDate = next->startDate;
        ticked.undo = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(update);
    if (!saved) return saved.error();
    return ticked;
}
