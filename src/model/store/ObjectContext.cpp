#include "model/store/ObjectContext.h"

#include "corvexkit/log/CXLog.h"
#include "model/records/EveryRecord.h"
#include "model/store/Connection.h"
#include "model/store/RecordMapper.h"
#include "model/store/StoreFailure.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger storeLog{u"store"};

QChar hexDigit(quint64 value) { return QLatin1Char{"0123456789abcdef"[value & 0xf]}; }

} // namespace

QString newRecordIdentifier(Instant now) { return RecordIdentifiers{now}.next(); }

RecordIdentifiers::RecordIdentifiers(Instant now)
    : m_time(quint64(now.time_since_epoch().count())), m_number(QRandomGenerator::global()->generate64())
{
}

QString RecordIdentifiers::next()
{
    const quint64 number = m_number++;
    QString identifier{24, Qt::Uninitialized};
    for (int digit = 0; digit < 12; ++digit) {
        identifier[digit] = hexDigit(m_time >> (44 - 4 * digit));
        identifier[12 + digit] = hexDigit(number >> (44 - 4 * digit));
    }
    return identifier;
}

ObjectContext::ObjectContext(std::unique_ptr<Connection> connection, const CXClock &clock)
    : m_connection(std::move(connection)), m_clock(clock)
{
}

ObjectContext::~ObjectContext() = default;

std::unique_ptr<Connection> ObjectContext::releaseConnection()
{
    m_transaction.reset();
    return std::move(m_connection);
}

KWBaseEntity &ObjectContext::adopt(std::shared_ptr<KWBaseEntity> record)
{
    record->m_context = this;
    KWBaseEntity &adopted = *record;
    mapOf(adopted.recordKind()).insert(adopted.sid(), std::move(record));
    return adopted;
}

void ObjectContext::prepareForInsertion(KWSynchronizableFields &fields) const
{
    const Instant now = m_clock.now();
    if (fields.sid.isEmpty()) fields.sid = newRecordIdentifier(now);
    if (!fields.createdTime) fields.createdTime = now;
    if (!fields.modifiedTime) fields.modifiedTime = now;
}

template <class Record>
Record &ObjectContext::insert(typename Record::Model model)
{
    prepareForInsertion(model);
    auto record = std::make_shared<Record>();
    record->m_current = std::move(model);
    Record &inserted = static_cast<Record &>(adopt(std::move(record)));
    noteChanged(inserted);
    return inserted;
}

template <class Record>
Record &ObjectContext::managed(typename Record::Model model)
{
    if (const auto known = mapOf(Record::Model::recordKind).value(model.sid))
        return static_cast<Record &>(*known);
    auto record = std::make_shared<Record>();
    record->m_state = KWBaseEntity::State::Stored;
    record->m_current = std::move(model);
    return static_cast<Record &>(adopt(std::move(record)));
}

template <class Record>
Record *ObjectContext::find(const QString &sid)
{
    using Model = typename Record::Model;
    if (const auto known = mapOf(Model::recordKind).value(sid))
        return known->isRemoved() ? nullptr : static_cast<Record *>(known.get());
    try {
        std::optional<Model> model = RecordMapper<Model>::find(*m_connection, sid);
        return model ? &managed<Record>(std::move(*model)) : nullptr;
    } catch (const SQLite::Exception &exception) {
        noteFailedRead(storeFailure(exception));
        return nullptr;
    }
}

template <class Record>
QList<typename Record::Model> ObjectContext::models(const SqlCondition &condition)
{
    try {
        return RecordMapper<typename Record::Model>::select(*m_connection, condition);
    } catch (const SQLite::Exception &exception) {
        noteFailedRead(storeFailure(exception));
        return {};
    }
}

template <class Record>
QList<Record *> ObjectContext::fetch(const SqlCondition &condition)
{
    QList<Record *> records;
    for (auto &model : models<Record>(condition)) {
        Record &record = managed<Record>(std::move(model));
        if (!record.isRemoved()) records.append(&record);
    }
    return records;
}

template <class Record>
QList<Record *> ObjectContext::changed() const
{
    QList<Record *> records;
    for (KWBaseEntity *each : m_changed)
        if (each->recordKind() == Record::Model::recordKind) records.append(static_cast<Record *>(each));
    return records;
}

template <class Record>
QList<Record *> ObjectContext::inserted() const
{
    QList<Record *> records = changed<Record>();
    records.removeIf([](const Record *each) { return !each->isInserted(); });
    return records;
}

std::int64_t ObjectContext::number(const char *sql, const SqlValues &values)
{
    try {
        return m_connection->number(sql, values);
    } catch (const SQLite::Exception &exception) {
        noteFailedRead(storeFailure(exception));
        return 0;
    }
}

QList<std::int64_t> ObjectContext::numbers(const char *sql, const SqlValues &values)
{
    try {
        Connection::Prepared statement = m_connection->prepare(sql);
        statement.bind(values);
        QList<std::int64_t> numbers;
        while (statement->executeStep())
            numbers.append(statement->getColumn(0).getInt64());
        return numbers;
    } catch (const SQLite::Exception &exception) {
        noteFailedRead(storeFailure(exception));
        return {};
    }
}

Result<void> ObjectContext::readResult() const
{
    return m_readFailure ? Result<void>{*m_readFailure} : Result<void>{};
}

void ObjectContext::noteFailedRead(Error error)
{
    storeLog.error(error.sentence);
    if (!m_readFailure) m_readFailure = std::move(error);
}

void ObjectContext::noteChanged(KWBaseEntity &record)
{
    if (std::exchange(record.m_isNoted, true)) return;
    m_changed.push_back(&record);
}

void ObjectContext::remove(KWBaseEntity &record)
{
    if (record.isInserted()) {
        forget(record);
        return;
    }
    record.m_state = KWBaseEntity::State::Removed;
    noteChanged(record);
}

void ObjectContext::forget(KWBaseEntity &record)
{
    std::erase(m_changed, &record);
    mapOf(record.recordKind()).remove(record.sid());
}

Connection &ObjectContext::bulkWriting()
{
    if (!m_transaction) m_transaction = std::make_unique<WriteTransaction>(*m_connection);
    m_hasBulkWrites = true;
    return *m_connection;
}

bool ObjectContext::hasChanges() const
{
    return m_hasBulkWrites || std::any_of(m_changed.begin(), m_changed.end(),
                                          [](const KWBaseEntity *each) { return each->hasChanges(); });
}

void ObjectContext::stampModification()
{
    const Instant now = m_clock.now();
    for (KWBaseEntity *each : m_changed)
        if (!each->isInserted() && !each->isRemoved() && each->isModified())
            static_cast<KWSynchronizableObject *>(each)->editSynchronizable().modifiedTime = now;
}

Result<void> ObjectContext::beginWriting()
{
    try {
        if (!m_transaction) m_transaction = std::make_unique<WriteTransaction>(*m_connection);
        return {};
    } catch (const SQLite::Exception &exception) {
        storeLog.error(storeFailure(exception).sentence);
        return storeFailure(exception);
    }
}

void ObjectContext::noteMove(const KWTask &task, StoreChange &change)
{
    TaskMove move;
    if (!task.isInserted()) move.from = TaskPlace::of(task.m_stored ? *task.m_stored : task.m_current);
    if (!task.isRemoved()) move.to = TaskPlace::of(task.m_current);
    if (move.from != move.to) change.taskMoves.append(move);
}

void ObjectContext::writeAll(StoreChange &change)
{
    const auto transaction =
        m_transaction ? std::move(m_transaction) : std::make_unique<WriteTransaction>(*m_connection);
    for (KWBaseEntity *each : m_changed) {
        if (each->recordKind() == RecordKind::Task) noteMove(static_cast<KWTask &>(*each), change);
        each->write(*m_connection);
        StoreChange::Ids &ids = change.of(each->recordKind());
        (each->isRemoved()    ? ids.deleted
         : each->isInserted() ? ids.inserted
                              : ids.updated)
            .append(each->sid());
    }
    transaction->commit();
}

Result<StoreChange> ObjectContext::save()
{
    for (KWBaseEntity *each : m_changed)
        if (!each->isRemoved()) each->willSave();
    std::erase_if(m_changed, [](KWBaseEntity *each) {
        const bool isUnchanged = !each->hasChanges();
        if (isUnchanged) {
            each->didSave();
            each->m_isNoted = false;
        }
        return isUnchanged;
    });
    StoreChange change;
    if (m_changed.empty() && !m_hasBulkWrites) {
        m_transaction.reset();
        return change;
    }
    m_hasBulkWrites = false; // written now or never

    stampModification();
    try {
        writeAll(change);
    } catch (const SQLite::Exception &exception) {
        storeLog.error(storeFailure(exception).sentence);
        return storeFailure(exception);
    }
    for (KWBaseEntity *each : std::exchange(m_changed, {})) {
        each->m_isNoted = false;
        if (each->isRemoved())
            forget(*each);
        else
            each->didSave();
    }
    if (onSaved && !change.isEmpty()) onSaved(change);
    return change;
}

void ObjectContext::rollback()
{
    if (std::exchange(m_hasBulkWrites, false)) m_transaction.reset();
    for (KWBaseEntity *each : std::exchange(m_changed, {})) {
        each->m_isNoted = false;
        if (each->isInserted())
            forget(*each);
        else
            each->revert();
    }
}

void ObjectContext::refresh(KWBaseEntity &record)
{
    if (record.isInserted()) return;
    try {
        if (!record.refresh(*m_connection)) forget(record);
    } catch (const SQLite::Exception &exception) {
        storeLog.error(storeFailure(exception).sentence);
    }
}

void ObjectContext::refresh(const StoreChange &change)
{
    for (std::size_t kind = 0; kind < recordKindCount; ++kind) {
        const StoreChange::Ids &ids = change.byKind[kind];
        for (const QStringList *list : {&ids.updated, &ids.deleted})
            for (const QString &sid : *list)
                if (const auto known = m_records[kind].value(sid)) refresh(*known);
    }
}

void ObjectContext::refreshAll()
{
    for (IdentityMap &map : m_records)
        for (const auto &each : map.values())
            refresh(*each);
}

#define MANAGED(Record)                                                                                      \
    template Record &ObjectContext::insert<Record>(Record::Model);                                           \
    template Record *ObjectContext::find<Record>(const QString &);                                           \
    template QList<Record *> ObjectContext::fetch<Record>(const SqlCondition &);                             \
    template QList<Record::Model> ObjectContext::models<Record>(const SqlCondition &);                       \
    template QList<Record *> ObjectContext::inserted<Record>() const;                                        \
    template QList<Record *> ObjectContext::changed<Record>() const;
EVERY_RECORD(MANAGED)
#undef MANAGED
