#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

class Connection;
class ObjectContext;

/// A managed record: it lives in one context, which owns it, on that context's thread. Changes are kept
/// in the record until the context saves them.
class KWBaseEntity {
public:
    KWBaseEntity(const KWBaseEntity &) = delete;
    KWBaseEntity &operator=(const KWBaseEntity &) = delete;
    virtual ~KWBaseEntity() = default;

    virtual RecordKind recordKind() const = 0;
    virtual const KWSynchronizableFields &synchronizable() const = 0;

    const QString &sid() const { return synchronizable().sid; }
    const QString &serverID() const { return synchronizable().sid; }
    ObjectContext &context() const { return *m_context; }

    /// Not stored yet.
    bool isInserted() const { return m_state == State::Inserted; }
    /// To be removed from the store for good by the next save.
    bool isRemoved() const { return m_state == State::Removed; }

protected:
    KWBaseEntity() = default;

    enum class State : std::uint8_t { Inserted, Stored, Removed };

private:
    friend class ObjectContext;

    virtual bool hasChanges() const = 0;
    /// Before a changed or new record is written: the last chance to bring what follows from other fields
    /// in line with them.
    virtual void willSave() {}
    /// Whether the changes are worth a new modification time: not those of what only follows.
    virtual bool isModified() const { return true; }
    virtual void write(Connection &connection) = 0;
    virtual void didSave() = 0;
    virtual void revert() = 0;
    /// Reads the stored values again, keeping the fields changed here. Answers false when the store
    /// holds the record no longer.
    virtual bool refresh(Connection &connection) = 0;

protected:
    ObjectContext *m_context = nullptr;
    State m_state = State::Inserted;

private:
    bool m_isNoted = false; // among the changed records of the context
};
