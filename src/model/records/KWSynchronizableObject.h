#pragma once

#include "model/records/KWBaseEntity.h"

/// A record that is exchanged with the service. Every change flags it, so that sync pushes it later.
class KWSynchronizableObject : public KWBaseEntity {
public:
    /// Deleted records stay in the store until they were pushed.
    bool isDeleted() const { return synchronizable().isDeleted; }
    bool isNotDeleted() const { return !isDeleted(); }
    bool isMarkedDeleted() const { return isDeleted() && synchronizable().syncStatus == KWSyncStatusDeleted; }

    void markUpdate() { mark(Change::General); }
    void markUpdateForContentUpdate() { mark(Change::Content); }
    void markUpdateForOrderUpdate() { mark(Change::Order); }
    void markDelete();
    /// Takes markDelete() back.
    void unmarkDelete();
    /// Removed by the next save when the service never knew the record, else as markDelete().
    void deleteForever();
    /// The service has what we have.
    void markDone();

protected:
    friend class ObjectContext;
    virtual KWSynchronizableFields &editSynchronizable() = 0;

    void mark(Change change);
};
