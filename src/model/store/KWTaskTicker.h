#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/UndoToken.h"

#include <QStringList>

class KWCoreDataManager;

/// Completes, abandons and reopens tasks in one save. Closing a task closes the open ones below it;
/// reopening one leaves them closed. A repeating task leaves a closed copy at the occurrence that is done
/// and goes on to the next one, open (docs/repeating.md). Ids may be of checklist items, too, which are
/// completed and reopened alike, and not abandoned. Main thread.
class KWTaskTicker {
public:
    explicit KWTaskTicker(KWCoreDataManager &manager) : m_manager(manager) {}

    struct Ticked {
        /// What was asked for; a task that went on to its next occurrence is open all the same.
        KWTaskStatus status;
        std::optional<Instant> nextDate{}; ///< where it went on to; of several, the last that did
        UndoToken undo{};
    };

    /// Completes those that are open; where none is, reopens them all. Several go in one save, or none of
    /// them does: those that are gone are left out as long as one is there.
    Result<Ticked> tick(const QStringList &ids);
    /// The same with one status for all; a task that has it already stays as it is.
    Result<Ticked> updateStatus(KWTaskStatus status, const QStringList &ids);
    /// Takes one of the above back, see UndoToken.
    Result<void> undo(const UndoToken &token) { return token.undo(m_manager); }

private:
    KWCoreDataManager &m_manager;
};
