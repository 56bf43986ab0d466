#pragma once

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"

/// Whether a task may be changed: it is there, and its list may be written. Else a sentence.
Result<void> mayChange(const KWTask *task);
/// The same of all of them.
Result<void> mayChange(const QList<KWTask *> &tasks);
/// The same, and that none is in the trash.
Result<void> mayChangeOutsideTrash(const KWTask *task);
Result<void> mayChangeOutsideTrash(const QList<KWTask *> &tasks);
/// Whether an item of a checklist may be changed: there is one, and its task may be changed.
Result<void> mayChangeItem(const KWChecklistItem *item);
/// The same of all of them, and that no task is in the trash.
Result<void> mayChangeOutsideTrash(const QList<KWChecklistItem *> &items);
/// Whether tasks may be put into a list: it is there, open, and may be written.
Result<void> mayTakeTasks(const KWProject *list);
