#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTaskModel.h"
#include "model/store/UndoToken.h"

#include <QList>

#include <functional>

class KWChecklistItem;
class KWCoreDataManager;
class KWTask;

/// A task with its checklist, as the detail shows it.
struct TaskWithChecklist {
    KWTaskModel task;
    QList<KWChecklistItemModel> items; ///< in their manual order
};

/// Edits of one task, each saved at once. An edit that fails leaves store and records as they were; an
/// edit of a task or item that is gone, or whose list may only be read, fails with a sentence. Main thread.
class KWTaskEditor {
public:
    explicit KWTaskEditor(KWCoreDataManager &manager) : m_manager(manager) {}

    /// Nothing when there is no such task (any more).
    std::optional<TaskWithChecklist> read(const QString &taskID) const;

    /// A title is one line: line breaks become spaces. An empty one is refused.
    Result<void> setTitle(const QString &taskID, const QString &title);
    /// The text shown below the title, see KWTaskModel::description().
    Result<void> setContent(const QString &taskID, const QString &content);

    // These can be taken back with the token, see UndoToken.
    Result<UndoToken> setPriority(const QString &taskID, KWTaskPriority priority);
    /// See moveToDay() and clearDates().
    Result<UndoToken> setDay(const QString &taskID, Day day);
    Result<UndoToken> clearDate(const QString &taskID);

    Result<void> setItemTitle(const QString &itemID, const QString &title);
    Result<void> tickItem(const QString &itemID);
    /// A new item behind `afterItemID`; before the first when that is empty, at the end when it is gone.
    /// Answers the new id. A text task becomes a checklist task and keeps its description; a note takes none.
    Result<QString> addItem(const QString &taskID, const QString &afterItemID, const QString &title);
    Result<void> removeItem(const QString &itemID);
    /// Takes removeItem() back.
    Result<void> restoreItem(const QString &itemID);

private:
    Result<UndoToken> editUndoably(const QString &taskID, const std::function<void(KWTask &)> &edit);
    Result<void> editTask(const QString &taskID, const std::function<void(KWTask &)> &edit);
    Result<void> editItem(const QString &itemID, const std::function<void(KWChecklistItem &)> &edit);
    Result<void> save();

    KWCoreDataManager &m_manager;
};
