#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/UndoToken.h"

#include <QStringList>

#include <functional>

class KWChecklistItem;
class KWCoreDataManager;
class KWTask;

/// What is done to several tasks at once, in one save, and to checklist items where `ids` may be of those,
/// too. Those that are gone are left out; when none is left, or one is in the trash or in a list that may
/// only be read, nothing changes and a sentence says why. A token is empty where all was so before. Main
/// thread.
class TaskBatch {
public:
    explicit TaskBatch(KWCoreDataManager &manager) : m_manager(manager) {}

    /// See moveToDay() and clearDates().
    Result<UndoToken> setDay(const QStringList &ids, Day day);
    Result<UndoToken> clearDate(const QStringList &ids);
    /// Tasks go into the trash, items for good.
    Result<UndoToken> remove(const QStringList &ids);
    Result<UndoToken> setPriority(const QStringList &taskIDs, KWTaskPriority priority);

    enum class Tagging { Add, Remove };
    /// `tag` is the name of a tag that there is.
    Result<UndoToken> setTag(const QStringList &taskIDs, const QString &tag, Tagging tagging);

    enum class Pinning { Pin, Unpin };
    /// Those that are pinned already keep their date.
    Result<UndoToken> setPinned(const QStringList &taskIDs, Pinning pinning);

    /// See changeKind().
    Result<UndoToken> setKind(const QStringList &taskIDs, KWTaskKind kind);

private:
    using ToTask = std::function<void(KWTask &)>;
    using ToItem = std::function<void(KWChecklistItem &)>;
    /// Does nothing to checklist items without `toItem`.
    Result<UndoToken> edit(const QStringList &ids, const ToTask &toTask, const ToItem &toItem = {});

    KWCoreDataManager &m_manager;
};
