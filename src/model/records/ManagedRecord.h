#pragma once

#include "model/records/KWSynchronizableObject.h"
#include "model/store/ObjectContext.h"
#include "model/store/RecordMapper.h"

#include <concepts>
#include <optional>
#include <utility>

/// A record made of its value twin: reading goes through `->`, writing through `set`, which flags the
/// kind of change that the field table gives the field.
template <class Twin>
class ManagedRecord : public KWSynchronizableObject {
public:
    using Model = Twin;

    RecordKind recordKind() const override { return Twin::recordKind; }
    const KWSynchronizableFields &synchronizable() const override { return m_current; }

    const Twin *operator->() const { return &m_current; }
    const Twin &model() const { return m_current; }
    /// What the store holds, as far as this context knows; nothing for a record that is not stored yet.
    std::optional<Twin> storedVersion() const
    {
        if (isInserted()) return std::nullopt;
        return m_stored ? *m_stored : m_current;
    }

    /// Sets one field; setting the value it has changes nothing.
    template <class Value, std::derived_from<KWSynchronizableFields> Owner>
    requires std::derived_from<Twin, Owner>
    void set(Value Owner::*member, std::type_identity_t<Value> value)
    {
        if (m_current.*member == value) return;
        beginEditing();
        m_current.*member = std::move(value);
        markFieldOf(member);
    }

    /// Takes every field of `version` but the identity and the sync state.
    void assign(const Twin &version)
    {
        if (version == m_current) return;
        beginEditing();
        const std::uint8_t changes = changesOf<Twin>(difference(m_current, version));
        const KWSynchronizableFields own = m_current;
        m_current = version;
        m_current.sid = own.sid;
        m_current.userID = own.userID;
        m_current.syncStatus = own.syncStatus;
        m_current.pendingChanges = own.pendingChanges;
        for (const Change change : {Change::General, Change::Content, Change::Order})
            if (changes & std::uint8_t(change)) mark(change);
    }

    /// Takes what a person chose anew: every field of `version` but those common to synchronized records.
    /// A record that was deleted comes back, the one that the service knows.
    void reviveAs(Twin version)
    {
        if (isDeleted()) unmarkDelete();
        static_cast<KWSynchronizableFields &>(version) = m_current;
        assign(version);
    }

protected:
    KWSynchronizableFields &editSynchronizable() override
    {
        beginEditing();
        return m_current;
    }

private:
    friend class ObjectContext;

    void beginEditing()
    {
        if (isInserted() || m_stored) return;
        m_stored = m_current;
        m_context->noteChanged(*this);
    }

    template <class Value, class Owner>
    void markFieldOf(Value Owner::*member)
    {
        forEachField<Twin>([&](const auto &each, std::size_t) {
            if constexpr (std::same_as<decltype(each.member), Value Owner::*>)
                if (each.member == member && each.change != Change::None) mark(each.change);
        });
    }

    bool hasChanges() const override
    {
        return isInserted() || isRemoved() || (m_stored && *m_stored != m_current);
    }

    void write(Connection &connection) override
    {
        if (isRemoved())
            RecordMapper<Twin>::remove(connection, sid());
        else if (isInserted())
            RecordMapper<Twin>::insert(connection, m_current);
        else if (m_stored)
            RecordMapper<Twin>::update(connection, m_current, difference(*m_stored, m_current));
    }

    void didSave() override
    {
        m_state = State::Stored;
        m_stored.reset();
    }

    void revert() override
    {
        m_state = State::Stored;
        if (m_stored) m_current = std::move(*m_stored);
        m_stored.reset();
    }

    bool refresh(Connection &connection) override
    {
        std::optional<Twin> fresh = RecordMapper<Twin>::find(connection, sid());
        if (!fresh) return false;
        if (m_stored) {
            const FieldMask edited = difference(*m_stored, m_current);
            m_stored = *fresh;
            forEachField<Twin>([&](const auto &each, std::size_t index) {
                if (edited >> index & 1) each.of(*fresh) = each.of(std::as_const(m_current));
            });
        }
        m_current = std::move(*fresh);
        return true;
    }

    Twin m_current;
    std::optional<Twin> m_stored; // what the store holds, while there are changes to it
};
