#include "model/records/KWTask.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"

void KWTask::updateStatus(KWTaskStatus status)
{
    set(&KWTaskModel::status, status);
    set(&KWTaskModel::completionDate,
        status == KWTaskStatusOpen ? std::nullopt : std::optional{context().clock().now()});
}

bool KWTask::isOverdue() const
{
    if (model().status != KWTaskStatusOpen || !model().startDate) return false;
    const Instant now = context().clock().now();
    if (!model().isAllDay) return model().endDate.value_or(*model().startDate) < now;
    const CXTimeZone zone = context().clock().zone();
    const Day lastDay =
        zone.dayOf(model().endDate ? *model().endDate - std::chrono::milliseconds{1} : *model().startDate);
    return lastDay < zone.dayOf(now);
}

KWProject *KWTask::project() const { return context().find<KWProject>(model().projectID); }

QList<KWChecklistItem *> KWTask::orderedChecklistItems() const
{
    return context().fetch<KWChecklistItem>(
        {.where = "taskID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "sortOrder, sid"});
}
