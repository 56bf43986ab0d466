#pragma once

#include "corvexkit/Result.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWCoreDataManager;

/// Makes one task of several. Main thread.
class KWTaskMerger {
public:
    explicit KWTaskMerger(KWCoreDataManager &manager) : m_manager(manager) {}

    /// The first task takes in the others, which go to the trash. Of each it gets, in their order:
    ///
    /// - the title and the checklist as items of its own checklist (of a note: as lines), ticked where they
    ///   were closed,
    /// - the text, appended to its own; texts of a checklist task stand above the checklist,
    /// - the tags, the attachments, and the tasks below it.
    ///
    /// It keeps its title and list, gets the highest priority, and the dates of the earliest task with the
    /// reminders and the repeating that go with them; a first task that repeats keeps its own. Fewer
    /// than two tasks are an error, and so is one in the trash.
    Result<UndoToken> merge(const QStringList &taskIDs);

private:
    KWCoreDataManager &m_manager;
};
