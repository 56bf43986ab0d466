#pragma once

#include "model/records/KWChecklistItemModel.h"
#include "model/records/ManagedRecord.h"

/// An item of a task's checklist in a context.
class KWChecklistItem : public ManagedRecord<KWChecklistItemModel> {
public:
    bool isCompleted() const { return model().isCompleted(); }
    /// Open or completed, and with it the completion date.
    void updateStatus(KWTaskStatus status);
};
