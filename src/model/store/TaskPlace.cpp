#include "model/store/TaskPlace.h"

#include "model/records/KWTaskModel.h"

std::optional<TaskPlace> TaskPlace::of(const KWTaskModel &task)
{
    if (task.status != KWTaskStatusOpen || task.isDeleted || task.isTrashed) return std::nullopt;
    return TaskPlace{.projectID = task.projectID,
                     .tags = task.tags,
                     .startDate = task.startDate,
                     .endDate = task.endDate,
                     .assignee = task.assignee,
                     .priority = task.priority,
                     .kind = task.kind,
                     .repeats = !task.repeatRule.isEmpty(),
                     .texts = {task.title, task.content, task.desc}};
}
