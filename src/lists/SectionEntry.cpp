#include "lists/SectionEntry.h"

#include "lists/KWTaskCategory.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskMover.h"
#include "model/store/TaskDays.h"

namespace {

void leaveSection(KWTask &task, const KWTaskCategory &from)
{
    if (from.isCompleted() && task->status != KWTaskStatusOpen) task.updateStatus(KWTaskStatusOpen);
    if (from.isPinned()) task.unpin();
}

void exchangeTag(KWTask &task, const KWTaskCategory &from, const std::optional<QString> &tag)
{
    QStringList tags = task->tags;
    if (!tag) tags.clear();
    if (const auto *left = from.as<KWTagCategorySection>(); left && left->tag) tags.removeAll(*left->tag);
    if (tag && !tags.contains(*tag)) tags.append(*tag);
    task.set(&KWTaskModel::tags, tags);
}

} // namespace

Result<void> enterSection(KWTask &task, const KWTaskCategory &from, const KWTaskCategory &to)
{
    leaveSection(task, from);
    if (const auto *date = to.as<KWDateCategorySection>()) {
        if (date->date)
            moveToDay(task, *date->date);
        else if (task->startDate)
            clearDates(task);
    }
    if (const auto *priority = to.as<KWPriorityCategorySection>())
        task.set(&KWTaskModel::priority, priority->priority);
    if (const auto *tag = to.as<KWTagCategorySection>()) exchangeTag(task, from, tag->tag);
    if (const auto *assignee = to.as<KWAssigneeCategorySection>())
        task.set(&KWTaskModel::assignee, assignee->userServerIDs.value(0, KWTaskAssignedToNobody));
    if (const auto *column = to.as<KWColumnCategorySection>())
        task.set(&KWTaskModel::columnID, column->column);
    if (to.isDefault() && from.isColumn()) task.set(&KWTaskModel::columnID, QString{});
    if (to.isPinned() && !task.isPinned()) task.pin(task.context().clock().now());
    if (to.isNoteKind()) {
        clearDates(task);
        task.set(&KWTaskModel::priority, KWTaskPriorityNone);
    }
    if (const auto *list = to.as<KWProjectCategorySection>())
        return KWTaskMover::move({&task}, task.context().find<KWProject>(list->projectID),
                                 KWTaskMover::From::Lists, task.context());
    return {};
}
