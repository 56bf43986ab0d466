#pragma once

#include "corvexkit/Result.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWCoreDataManager;
class KWProject;
class KWTask;

/// Moves tasks to another list, in one save. Main thread.
class KWTaskMover {
public:
    explicit KWTaskMover(KWCoreDataManager &manager) : m_manager(manager) {}

    enum class From {
        Lists,
        Trash, ///< `isInTrash`: they come out of it
    };

    /// Moves the tasks with all that is below them to the top of the list, in the order given, out of
    /// their kanban columns; a task whose parent does not come along leaves it. What is in the list
    /// already stays in its place. Refused as a whole when a list may not be written.
    Result<UndoToken> move(const QStringList &taskIDs, const QString &toListID, From from);

    /// The same inside a save that somebody else makes.
    static Result<void> move(const QList<KWTask *> &tasks, KWProject *list, From from,
                             ObjectContext &context);

private:
    KWCoreDataManager &m_manager;
};
