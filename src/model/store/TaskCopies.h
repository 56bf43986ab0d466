#pragma once

#include "model/records/KWTask.h"

#include <concepts>

/// The values of `original` for a record of its own: the store and the service do not know it yet.
template <class Twin>
Twin freshCopy(Twin original)
{
    KWSynchronizableFields fields;
    fields.userID = original.userID;
    fields.sortOrder = original.sortOrder;
    static_cast<KWSynchronizableFields &>(original) = fields;
    if constexpr (std::same_as<Twin, KWTaskModel>) original.serverStartDate = original.serverEndDate = {};
    return original;
}

/// Copies the checklist of a task to another one: its ticks, but no snoozed nor missed reminders.
void copyChecklist(const KWTask &task, const QString &toTaskID);
/// Copies what tells of the attached files; both tasks show the same files.
void copyAttachments(const KWTask &task, const QString &toTaskID);
