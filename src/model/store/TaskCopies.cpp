#include "model/store/TaskCopies.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"

namespace {

template <class Record>
void copyToTask(const Record &record, const QString &taskID)
{
    auto copy = freshCopy(record.model());
    copy.taskID = taskID;
    if constexpr (std::same_as<Record, KWChecklistItem>) copy.remindTime = copy.snoozedRemindDate = {};
    record.context().template insert<Record>(std::move(copy));
}

} // namespace

void copyChecklist(const KWTask &task, const QString &toTaskID)
{
    for (const KWChecklistItem *each : task.orderedChecklistItems())
        copyToTask(*each, toTaskID);
}

void copyAttachments(const KWTask &task, const QString &toTaskID)
{
    for (const KWAttachment *each : task.attachments())
        copyToTask(*each, toTaskID);
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
