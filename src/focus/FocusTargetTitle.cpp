#include "focus/FocusTargetTitle.h"

#include "model/records/KWHabit.h"
#include "model/records/KWTask.h"

QString titleOf(const FocusTarget &target, ObjectContext &context)
{
    if (const KWTask *task = context.find<KWTask>(target.taskID())) return (*task)->title;
    if (const KWHabit *habit = context.find<KWHabit>(target.habitID())) return (*habit)->name;
    return {};
}

bool exists(const FocusTarget &target, ObjectContext &context)
{
    if (const KWTask *task = context.find<KWTask>(target.taskID()))
        return task->isNotDeleted() && !(*task)->isTrashed;
    if (const KWHabit *habit = context.find<KWHabit>(target.habitID()))
        return habit->isNotDeleted() && !(*habit)->isArchived;
    return false;
}
