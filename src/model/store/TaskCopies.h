#pragma once

#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTask.h"

#include <concepts>
#include <functional>

/// The values of `original` for a record of its own: the store and the service do not know it yet. That of a
/// task reminds of nothing, is not pinned and has no subtasks.
template <class Twin>
Twin freshCopy(Twin original)
{
    KWSynchronizableFields fields;
    fields.userID = original.userID;
    fields.sortOrder = original.sortOrder;
    static_cast<KWSynchronizableFields &>(original) = fields;
    if constexpr (std::same_as<Twin, KWTaskModel>) {
        for (const auto date :
             {&KWTaskModel::serverStartDate, &KWTaskModel::serverEndDate, &KWTaskModel::remindTime,
              &KWTaskModel::snoozedRemindDate, &KWTaskModel::pinnedDate})
            (original.*date).reset();
        original.childIds.clear();
    }
    return original;
}

/// Copies the checklist of a task to another one: its ticks, but no snoozed nor missed reminders.
void copyChecklist(const KWTask &task, const QString &toTaskID);
/// The same, each item as `changed` has it.
void copyChecklist(const KWTask &task, const QString &toTaskID,
                   const std::function<KWChecklistItemModel(const KWChecklistItemModel &)> &changed);
/// Copies what tells of the attached files; both tasks show the same files.
void copyAttachments(const KWTask &task, const QString &toTaskID);
/// Copies of those of `below` under the copy of their task, as they stand under it, each made by `makeCopy`;
/// parents come before their children.
void copyBelow(const KWTask &task, KWTask &copy, const QList<KWTask *> &below,
               const std::function<KWTask &(const KWTask &)> &makeCopy);
