#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWAttachmentModel.h"
#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTaskModel.h"
#include "model/store/TaskSchedule.h"
#include "model/store/UndoToken.h"

#include <QList>

#include <functional>

class KWChecklistItem;
class KWCoreDataManager;
class KWTask;

/// A task with what belongs to it, as the detail shows it.
struct TaskWithParts {
    KWTaskModel task;
    QList<KWChecklistItemModel> items;    ///< in their manual order
    QList<KWTaskModel> subtasks;          ///< right below it, in its order
    QList<KWAttachmentModel> attachments; ///< the oldest first
};

/// Edits of one task, each saved at once. An edit that fails leaves store and records as they were; an
/// edit of a task or item that is gone, or whose list may only be read, fails with a sentence. Main thread.
class KWTaskEditor {
public:
    explicit KWTaskEditor(KWCoreDataManager &manager) : m_manager(manager) {}

    /// Nothing when there is no such task (any more).
    std::optional<TaskWithParts> read(const QString &taskID) const;

    /// A title is one line: line breaks become spaces. An empty one is refused.
    Result<void> setTitle(const QString &taskID, const QString &title);
    /// The text shown below the title, see KWTaskModel::description().
    Result<void> setContent(const QString &taskID, const QString &content);

    // These can be taken back with the token, see UndoToken.
    Result<UndoToken> setPriority(const QString &taskID, KWTaskPriority priority);
    /// See moveToDay() and clearDates().
    Result<UndoToken> setDay(const QString &taskID, Day day);
    Result<UndoToken> clearDate(const QString &taskID);
    /// See TaskSchedule::check() and applyTo().
    Result<UndoToken> setSchedule(const QString &taskID, const TaskSchedule &chosen,
                                  const TaskSchedule &shown);
    /// No text is lost: a checklist becomes lines of the text and the lines of a text a checklist, see
    /// ChecklistText. Dates of checklist items go with them.
    Result<UndoToken> setKind(const QString &taskID, KWTaskKind kind);
    /// A tag that there is not yet is made; see KWTagService::checkedLabel().
    Result<UndoToken> addTag(const QString &taskID, const QString &label);
    /// How many Pomos and how long it is thought to take; 0 for no estimate. More than 1000 of them or 1000
    /// hours are refused.
    Result<UndoToken> setEstimate(const QString &taskID, int pomos, std::chrono::seconds duration);
    /// A member of the task's list, by the server's id, or KWTaskAssignedToNobody.
    Result<UndoToken> setAssignee(const QString &taskID, std::int64_t userServerID);
    /// A new open task below the task, the last there, in the same list. A note takes none.
    Result<UndoToken> addSubtask(const QString &taskID, const QString &title);

    Result<void> setItemTitle(const QString &itemID, const QString &title);
    Result<void> tickItem(const QString &itemID);
    /// A new item behind `afterItemID`; before the first when that is empty, at the end when it is gone.
    /// Answers the new id. A text task becomes a checklist task and keeps its description; a note takes none.
    Result<QString> addItem(const QString &taskID, const QString &afterItemID, const QString &title);
    /// All day without a time; no date takes it away. A snoozed reminder is dropped with the old one.
    Result<UndoToken> setItemDate(const QString &itemID, const std::optional<KWDateTime> &date);
    Result<void> removeItem(const QString &itemID);
    /// Takes removeItem() back.
    Result<void> restoreItem(const QString &itemID);

private:
    Result<UndoToken> editUndoably(const QString &taskID, const std::function<void(KWTask &)> &edit);
    Result<UndoToken> tryUndoably(const QString &taskID, const std::function<Result<void>(KWTask &)> &edit);
    Result<void> editTask(const QString &taskID, const std::function<void(KWTask &)> &edit);
    Result<void> editItem(const QString &itemID, const std::function<void(KWChecklistItem &)> &edit);
    Result<void> save();

    KWCoreDataManager &m_manager;
};
