#pragma once

#include "model/records/KWChecklistItemModel.h"
#include "model/records/ManagedRecord.h"

/// An item of a task's checklist in a context.
class KWChecklistItem : public ManagedRecord<KWChecklistItemModel> {
public:
    bool isCompleted() const { return model().isCompleted(); }
    /// Open or completed, and with it the completion date.
    void updateStatus(KWTaskStatus status);
    /// As the operation of KWTask; for an item that is all-day or belongs to a floating task. Ask it before
    /// its task, which says in which zone both were set.
    bool adaptToTimeZoneFromDesignatedToLocalIfNeeded(const CXTimeZone &lastLocalZone);
    /// As of KWTask.
    void keepAlert(std::optional<Instant> alert);

private:
    void willSave() override;
    bool isModified() const override;

    bool m_keepsAlert = false; // until the next save
};
