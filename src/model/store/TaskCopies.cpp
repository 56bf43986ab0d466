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
