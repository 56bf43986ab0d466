#include "model/store/KWTaskEditor.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/OneLine.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskDays.h"
#include "model/store/TaskPermissions.h"

#include <numeric>

namespace {

qsizetype indexBehind(const QString &itemID, const QList<KWChecklistItem *> &items)
{
    if (itemID.isEmpty()) return 0;
    for (qsizetype i = 0; i < items.size(); ++i)
        if (items.at(i)->sid() == itemID) return i + 1;
    return items.size();
}

// Half-way between its neighbours; when there is no room left, all make some.
void place(KWChecklistItem &item, qsizetype index, QList<KWChecklistItem *> items)
{
    const auto orderAt = [&items](qsizetype i) { return items.at(i)->model().sortOrder; };
    std::int64_t order = 0;
    if (index > 0 && index < items.size())
        order = std::midpoint(orderAt(index - 1), orderAt(index));
    else if (!items.isEmpty())
        order = index == 0 ? orderAt(0) - KWSortOrderStep : orderAt(index - 1) + KWSortOrderStep;
    KWEntitySortOrder::update(item, order);
    items.insert(index, &item);
    resetSortOrderIfNeeded(items);
}

Result<void> mayChangeItem(const KWChecklistItem *item)
{
    if (!item) return Error{storeText("There is no such item any more.")};
    return mayChange(item->context().find<KWTask>((*item)->taskID));
}

} // namespace

std::optional<TaskWithChecklist> KWTaskEditor::read(const QString &taskID) const
{
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (!task || task->isDeleted()) return std::nullopt;
    TaskWithChecklist found{task->model(), {}};
    for (const KWChecklistItem *each : task->orderedChecklistItems())
        found.items.append(each->model());
    return found;
}

Result<void> KWTaskEditor::save()
{
    ObjectContext &context = m_manager.MR_defaultContext();
    const Result<StoreChange> saved = context.save();
    if (saved) return {};
    context.rollback();
    return saved.error();
}

Result<void> KWTaskEditor::editTask(const QString &taskID, const std::function<void(KWTask &)> &edit)
{
    KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (const Result<void> allowed = mayChange(task); !allowed) return allowed;
    edit(*task);
    return save();
}

Result<UndoToken> KWTaskEditor::editUndoably(const QString &taskID, const std::function<void(KWTask &)> &edit)
{
    UndoToken undo;
    const Result<void> edited = editTask(taskID, [&](KWTask &task) {
        edit(task);
        undo = UndoToken::of(task.context());
    });
    if (!edited) return edited.error();
    return undo;
}

Result<void> KWTaskEditor::editItem(const QString &itemID, const std::function<void(KWChecklistItem &)> &edit)
{
    KWChecklistItem *item = m_manager.MR_defaultContext().find<KWChecklistItem>(itemID);
    if (item && item->isDeleted()) item = nullptr;
    if (const Result<void> allowed = mayChangeItem(item); !allowed) return allowed;
    edit(*item);
    return save();
}

Result<void> KWTaskEditor::setTitle(const QString &taskID, const QString &title)
{
    const QString line = onOneLine(title);
    if (line.isEmpty()) return Error{storeText("A task needs a title.")};
    return editTask(taskID, [&line](KWTask &task) { task.set(&KWTaskModel::title, line); });
}

Result<void> KWTaskEditor::setContent(const QString &taskID, const QString &content)
{
    return editTask(taskID, [&content](KWTask &task) {
        task.set(task.isChecklistKind() ? &KWTaskModel::desc : &KWTaskModel::content, content);
    });
}

Result<UndoToken> KWTaskEditor::setPriority(const QString &taskID, KWTaskPriority priority)
{
    return editUndoably(taskID, [priority](KWTask &task) { task.set(&KWTaskModel::priority, priority); });
}

Result<UndoToken> KWTaskEditor::setDay(const QString &taskID, Day day)
{
    return editUndoably(taskID, [day](KWTask &task) { moveToDay(task, day); });
}

Result<UndoToken> KWTaskEditor::clearDate(const QString &taskID) { return editUndoably(taskID, clearDates); }

Result<void> KWTaskEditor::setItemTitle(const QString &itemID, const QString &title)
{
    return editItem(itemID, [&title](KWChecklistItem &item) {
        item.set(&KWChecklistItemModel::title, onOneLine(title));
    });
}

Result<void> KWTaskEditor::tickItem(const QString &itemID)
{
    return editItem(itemID, [](KWChecklistItem &item) {
        item.updateStatus(item.isCompleted() ? KWTaskStatusOpen : KWTaskStatusCompleted);
    });
}

Result<QString> KWTaskEditor::addItem(const QString &taskID, const QString &afterItemID, const QString &title)
{
    const KWTask *owner = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (owner && owner->isNoteKind()) return Error{storeText("A note has no checklist.")};
    QString itemID;
    const Result<void> added = editTask(taskID, [&](KWTask &task) {
        KWChecklistItemModel item;
        item.userID = task.model().userID;
        item.taskID = taskID;
        item.title = onOneLine(title);
        const QList<KWChecklistItem *> items = task.orderedChecklistItems();
        KWChecklistItem &inserted = task.context().insert<KWChecklistItem>(std::move(item));
        place(inserted, indexBehind(afterItemID, items), items);
        itemID = inserted.sid();
        task.becomeChecklist();
    });
    if (!added) return added.error();
    return itemID;
}

Result<void> KWTaskEditor::removeItem(const QString &itemID)
{
    return editItem(itemID, [](KWChecklistItem &item) { item.markDelete(); });
}

Result<void> KWTaskEditor::restoreItem(const QString &itemID)
{
    KWChecklistItem *item = m_manager.MR_defaultContext().find<KWChecklistItem>(itemID);
    if (const Result<void> allowed = mayChangeItem(item); !allowed) return allowed;
    if (item->isDeleted()) item->unmarkDelete();
    return save();
}
