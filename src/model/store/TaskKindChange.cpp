#include "model/store/TaskKindChange.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/store/ChecklistText.h"

namespace {

// A task keeps one of its two texts on show; what another program left in the other one is shown now.
QString joined(const QString &text, const QString &other)
{
    if (text.isEmpty() || other.isEmpty()) return text + other;
    return text + QStringLiteral("\n\n") + other;
}

void putItemsIntoText(KWTask &task)
{
    ChecklistText checklist{task->desc, {}};
    for (KWChecklistItem *each : task.orderedChecklistItems()) {
        if (!(*each)->title.isEmpty()) checklist.items.append({(*each)->title, each->isCompleted()});
        each->markDelete();
    }
    task.set(&KWTaskModel::content, joined(checklist.toText(), task->content));
    task.set(&KWTaskModel::desc, QString{});
}

void makeItemsOfText(KWTask &task)
{
    const ChecklistText checklist = ChecklistText::ofText(task->content);
    std::int64_t order = 0;
    for (const ChecklistText::Item &each : checklist.items) {
        KWChecklistItemModel item;
        item.userID = task->userID;
        item.taskID = task.sid();
        item.title = each.title;
        item.sortOrder = order += KWSortOrderStep;
        KWChecklistItem &made = task.context().insert<KWChecklistItem>(std::move(item));
        if (each.isCompleted) made.updateStatus(KWTaskStatusCompleted);
    }
    task.set(&KWTaskModel::desc, joined(checklist.description, task->desc));
    task.set(&KWTaskModel::content, QString{});
}

} // namespace

void changeKind(KWTask &task, KWTaskKind kind)
{
    if (task->kind == kind) return;
    if (task.isChecklistKind())
        putItemsIntoText(task);
    else if (kind == KWTaskKindChecklist)
        makeItemsOfText(task);
    task.set(&KWTaskModel::kind, kind);
}
