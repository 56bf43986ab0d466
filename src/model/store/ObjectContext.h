#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/records/KWBaseEntity.h"
#include "model/store/SqlValue.h"
#include "model/store/StoreChange.h"

#include <QHash>
#include <QList>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class Connection;
class KWTask;
class WriteTransaction;

/// A unit of work over one connection: it owns the records it has read or made, one object a record,
/// and writes what changed in one transaction. A context and its records are used by one thread.
class ObjectContext {
public:
    ObjectContext(std::unique_ptr<Connection> connection, const CXClock &clock);
    ~ObjectContext();

    /// A new record with the values of `model`; an empty `sid`, creation or modification time is filled.
    template <class Record>
    Record &insert(typename Record::Model model);
    /// The record with that id, or none; none as well when the store cannot be read: see readResult().
    template <class Record>
    Record *find(const QString &sid);
    /// The stored records that fit, deleted ones included unless the condition says otherwise. Records
    /// changed here and not saved yet are found by their stored values and show their changed ones.
    template <class Record>
    QList<Record *> fetch(const SqlCondition &condition);
    /// The same as values, without managing them.
    template <class Record>
    QList<typename Record::Model> models(const SqlCondition &condition);
    /// The records made here and not saved yet.
    template <class Record>
    QList<Record *> inserted() const;
    /// Those made, changed or removed here and not saved yet, in the order of their first change.
    template <class Record>
    QList<Record *> changed() const;
    /// The first column of the first row of a query, 0 when there is none or it fails.
    std::int64_t number(const char *sql, const SqlValues &values = {});
    /// The first column of every row, none when the query fails.
    QList<std::int64_t> numbers(const char *sql, const SqlValues &values = {});
    /// The error of the first read that failed in this context: what was decided on such reading must not
    /// be saved.
    Result<void> readResult() const;

    /// Removes the record's row for good at the next save.
    void remove(KWBaseEntity &record);

    /// For statements that write many rows at once, past the records: what they do is part of the next save,
    /// or is taken back with it, and is in no StoreChange. Takes the write lock as beginWriting() does.
    /// Throws SQLite::Exception.
    Connection &bulkWriting();

    bool hasChanges() const;
    /// Takes the store's write lock now and keeps it until the next save, or until the context ends: what
    /// is read meanwhile stays true until it is written. Waits a few seconds for another writer.
    Result<void> beginWriting();
    /// Writes all changes durably, or none: on failure the store is as before, the changes are still
    /// here and can be saved again or rolled back. A changed record that the store no longer holds is one.
    Result<StoreChange> save();
    /// Takes every unsaved change back. Pointers to records made since the last save are invalid then.
    void rollback();

    /// Reads again what another context or process has written.
    void refresh(const StoreChange &change);
    void refreshAll();

    Connection &connection() { return *m_connection; }
    /// Ends the context: only dropping it is allowed afterwards.
    std::unique_ptr<Connection> releaseConnection();
    const CXClock &clock() const { return m_clock; }

    /// Called after every successful save that changed records.
    std::function<void(const StoreChange &)> onSaved;

    void noteChanged(KWBaseEntity &record);

private:
    using IdentityMap = QHash<QString, std::shared_ptr<KWBaseEntity>>;

    IdentityMap &mapOf(RecordKind kind) { return m_records[std::size_t(kind)]; }
    KWBaseEntity &adopt(std::shared_ptr<KWBaseEntity> record);
    template <class Record>
    Record &managed(typename Record::Model model);
    void refresh(KWBaseEntity &record);
    void prepareForInsertion(KWSynchronizableFields &fields) const;
    void stampModification();
    static void noteMove(const KWTask &task, StoreChange &change);
    void writeAll(StoreChange &change);
    void forget(KWBaseEntity &record);
    void noteFailedRead(Error error);

    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<WriteTransaction> m_transaction; // begun before the save; goes before the connection
    bool m_hasBulkWrites = false;                    // in the transaction
    const CXClock &m_clock;
    std::array<IdentityMap, recordKindCount> m_records;
    std::vector<KWBaseEntity *> m_changed; // each once, in the order of their first change
    std::optional<Error> m_readFailure;    // the first
};

/// A new identifier: 24 hexadecimal digits, the time of `now` in front, so that ids made later sort
/// later, then 48 random bits.
QString newRecordIdentifier(Instant now);

/// New identifiers, each sorting behind the one before: many rows at once are stored side by side.
class RecordIdentifiers {
public:
    explicit RecordIdentifiers(Instant now);

    QString next();

private:
    const quint64 m_time;
    quint64 m_number; // random at first
};
