#include "model/store/TaskPlace.h"

#include "model/records/KWTaskModel.h"

std::optional<TaskPlace> TaskPlace::of(const KWTaskModel &task)
{
    if (task.status != KWTaskStatusOpen || task.isDeleted || task.isTrashed) return std::nullopt;
    return TaskPlace{task.projectID, task.tags, task.startDate, task.endDate, task.assignee};
}
