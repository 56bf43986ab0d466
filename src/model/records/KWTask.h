#pragma once

#include "model/records/KWTaskModel.h"
#include "model/records/ManagedRecord.h"

class KWChecklistItem;
class KWProject;

/// A task in a context.
class KWTask : public ManagedRecord<KWTaskModel> {
public:
    bool isTextKind() const { return model().kind == KWTaskKindText; }
    bool isChecklistKind() const { return model().kind == KWTaskKindChecklist; }
    bool isNoteKind() const { return model().kind == KWTaskKindNote; }

    bool isCompleted() const { return model().status == KWTaskStatusCompleted; }
    bool isAbandoned() const { return model().status == KWTaskStatusAbandoned; }
    /// Sets the status and, with it, the completion date: now when closed, nothing when open.
    void updateStatus(KWTaskStatus status);

    bool hasChildren() const { return !model().childIds.isEmpty(); }
    bool hasParent() const { return !model().parentId.isEmpty(); }
    bool isPinned() const { return model().pinnedDate.has_value(); }
    void pin(Instant date) { set(&KWTaskModel::pinnedDate, date); }
    void unpin() { set(&KWTaskModel::pinnedDate, std::nullopt); }

    /// Open, and its last moment is past: the end of its day for an all-day task, its start or end else.
    bool isOverdue() const;

    /// The owning list, or none when it is gone.
    KWProject *project() const;
    /// The items not deleted, in their manual order.
    QList<KWChecklistItem *> orderedChecklistItems() const;
};
