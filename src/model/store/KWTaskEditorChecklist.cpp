#include "model/store/KWTaskEditor.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/OneLine.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
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

} // namespace

Result<void> KWTaskEditor::editItem(const QString &itemID, const std::function<void(KWChecklistItem &)> &edit)
{
    KWChecklistItem *item = m_manager.MR_defaultContext().find<KWChecklistItem>(itemID);
    if (item && item->isDeleted()) item = nullptr;
    if (const Result<void> allowed = mayChangeItem(item); !allowed) return allowed;
    edit(*item);
    return save();
}

Result<void> KWTaskEditor::setItemTitle(const QString &itemID, const QString &title)
{
    const QString line = onOneLine(title);
    if (line.isEmpty()) return Error{storeText("A checklist item needs a text.")};
    return editItem(itemID, [&line](KWChecklistItem &item) { item.set(&KWChecklistItemModel::title, line); });
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

Result<UndoToken> KWTaskEditor::setItemDate(const QString &itemID, const std::optional<KWDateTime> &date)
{
    UndoToken undo;
    const Result<void> edited = editItem(itemID, [&](KWChecklistItem &item) {
        item.set(&KWChecklistItemModel::startDate, date ? std::optional{date->date} : std::nullopt);
        item.set(&KWChecklistItemModel::isAllDay, date && !date->hasTime);
        item.set(&KWChecklistItemModel::snoozedRemindDate, std::nullopt);
        undo = UndoToken::of(item.context());
    });
    if (!edited) return edited.error();
    return undo;
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
