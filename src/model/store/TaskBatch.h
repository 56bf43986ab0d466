#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/UndoToken.h"

#include <QStringList>

#include <functional>

class KWCoreDataManager;
class KWTask;

/// What is done to several tasks at once, in one save. Tasks that are gone are left out; when none is left,
/// or one is in the trash or in a list that may only be read, nothing changes and a sentence says why. A
/// token is empty where all was so before. Main thread.
class TaskBatch {
public:
    explicit TaskBatch(KWCoreDataManager &manager) : m_manager(manager) {}

    /// See moveToDay() and clearDates().
    Result<UndoToken> setDay(const QStringList &taskIDs, Day day);
    Result<UndoToken> clearDate(const QStringList &taskIDs);
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
    Result<UndoToken> edit(const QStringList &taskIDs, const std::function<void(KWTask &)> &change);

    KWCoreDataManager &m_manager;
};
