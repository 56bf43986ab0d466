#include "model/records/KWSynchronizableObject.h"

#include "model/store/ObjectContext.h"

void KWSynchronizableObject::mark(Change change)
{
    KWSynchronizableFields &fields = editSynchronizable();
    fields.pendingChanges |= std::uint8_t(change);
    if (fields.syncStatus == KWSyncStatusDone) fields.syncStatus = KWSyncStatusUpdated;
}

void KWSynchronizableObject::markDelete()
{
    KWSynchronizableFields &fields = editSynchronizable();
    fields.isDeleted = true;
    fields.syncStatus = KWSyncStatusDeleted;
}

void KWSynchronizableObject::unmarkDelete()
{
    KWSynchronizableFields &fields = editSynchronizable();
    fields.isDeleted = false;
    fields.syncStatus = fields.etag.isEmpty() ? KWSyncStatusCreated : KWSyncStatusUpdated;
}

void KWSynchronizableObject::deleteForever()
{
    if (synchronizable().syncStatus == KWSyncStatusCreated)
        context().remove(*this);
    else
        markDelete();
}

void KWSynchronizableObject::markDone()
{
    KWSynchronizableFields &fields = editSynchronizable();
    fields.pendingChanges = std::uint8_t(Change::None);
    fields.syncStatus = KWSyncStatusDone;
}
