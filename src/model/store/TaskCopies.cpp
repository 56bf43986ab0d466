#include "model/store/TaskCopies.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"

namespace {

template <class Record>
void copyToTask(typename Record::Model original, const QString &taskID, ObjectContext &context)
{
    auto copy = freshCopy(std::move(original));
    copy.taskID = taskID;
    if constexpr (std::same_as<Record, KWChecklistItem>) copy.remindTime = copy.snoozedRemindDate = {};
    context.insert<Record>(std::move(copy));
}

} // namespace

void copyChecklist(const KWTask &task, const QString &toTaskID)
{
    copyChecklist(task, toTaskID, [](const KWChecklistItemModel &item) { return item; });
}

void copyChecklist(const KWTask &task, const QString &toTaskID,
                   const std::function<KWChecklistItemModel(const KWChecklistItemModel &)> &changed)
{
    for (const KWChecklistItem *each : task.orderedChecklistItems())
        copyToTask<KWChecklistItem>(changed(each->model()), toTaskID, task.context());
}

void copyAttachments(const KWTask &task, const QString &toTaskID)
{
    for (const KWAttachment *each : task.attachments())
        copyToTask<KWAttachment>(each->model(), toTaskID, task.context());
}

void copyBelow(const KWTask &task, KWTask &copy, const QList<KWTask *> &below,
               const std::function<KWTask &(const KWTask &)> &makeCopy)
{
    QHash<QString, KWTask *> copies{{task.sid(), &copy}};
    for (const KWTask *each : below) {
        KWTask *parent = copies.value((*each)->parentId);
        if (!parent) continue;
        KWTask &child = makeCopy(*each);
        child.set(&KWTaskModel::parentId, parent->sid());
        parent->set(&KWTaskModel::childIds, (*parent)->childIds + QStringList{child.sid()});
        copies.insert(each->sid(), &child);
    }
}
