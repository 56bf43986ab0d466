#include "model/exchange/StoreImport.h"

#include "model/exchange/AccountMerge.h"
#include "model/exchange/DocumentReader.h"
#include "model/exchange/ExchangeFormat.h"
#include "model/records/EveryRecord.h"
#include "model/records/RecordJson.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/Connection.h"
#include "model/store/RecordMapper.h"
#include "model/store/Store.h"
#include "model/store/StoreFailure.h"

#include <sqlite3.h>

#include <utility>

namespace {

Error refusal(const Error &where)
{
    return {KWLocalizedString("Nothing was imported; %1.").arg(where.sentence)};
}

class Importer {
public:
    Importer(QIODevice &document, Connection &connection)
        : m_reader(document), m_connection(connection), m_accounts(connection)
    {
    }

    Result<ImportSummary> run()
    {
        if (const Result<void> head = readHead(); !head) return head.error();
        for (;;) {
            const Result<std::optional<QString>> name = m_reader.nextName();
            if (!name) return name.error();
            if (!*name) break;
            if (const Result<void> read = readKind(**name); !read) return read.error();
        }
        if (const Result<void> whole = checkReferences(); !whole) return whole.error();
        return m_summary;
    }

private:
    Result<void> readHead()
    {
        const Error foreign{KWLocalizedString("it is no export of Orvane")};
        const Result<std::optional<QString>> format = m_reader.nextName();
        if (!format)
            return Error{KWLocalizedString("it is no export of Orvane (%1)").arg(format.error().sentence)};
        if (*format != QStringLiteral("format")) return foreign;
        const Result<QJsonValue> name = m_reader.value();
        if (!name || name->toString() != QLatin1StringView{exchange::formatName}) return foreign;

        const Result<std::optional<QString>> version = m_reader.nextName();
        if (!version || *version != QStringLiteral("version")) return foreign;
        const Result<QJsonValue> number = m_reader.value();
        if (!number || number->toInteger() < 1) return foreign;
        if (number->toInteger() > exchange::formatVersion)
            return Error{KWLocalizedString("a newer version of Orvane wrote it")};
        return {};
    }

    Result<void> readKind(const QString &name)
    {
        if (m_namesRead.contains(name))
            return m_reader.errorHere(KWLocalizedString("“%1” stands there a second time").arg(name));
        m_namesRead.insert(name);
        m_idsRead.clear();
#define READ_KIND(Record)                                                                                    \
    if (name == QLatin1StringView{Record::Model::tableName}) return readRecords<Record::Model>();
        EVERY_RECORD(READ_KIND)
#undef READ_KIND
        return m_reader.errorHere(KWLocalizedString("“%1” is no kind of record").arg(name));
    }

    template <class Twin>
    Result<void> readRecords()
    {
        // Whose the records are must be known before the first of them.
        if (std::same_as<Twin, KWUserModel> && m_namesRead.size() > 1)
            return m_reader.errorHere(KWLocalizedString("the accounts must come first"));
        for (;;) {
            const Result<std::optional<QJsonObject>> record = m_reader.nextElement();
            if (!record) return record.error();
            if (!*record) return {};
            const Result<Twin> twin = read<Twin>(**record);
            if (!twin) return twin.error();
            merge(*twin);
        }
    }

    template <class Twin>
    Result<Twin> read(const QJsonObject &object)
    {
        const QString kind = QString::fromLatin1(Twin::tableName);
        Twin twin;
        if (const std::optional<QString> wrongKey = readJson(m_accounts.adapted(object), twin))
            return m_reader.errorHere(
                KWLocalizedString("“%1” of a record in “%2” has a value that it cannot have")
                    .arg(*wrongKey, kind));
        if (twin.sid.isEmpty())
            return m_reader.errorHere(KWLocalizedString("a record in “%1” has no id").arg(kind));
        if (m_idsRead.contains(twin.sid))
            return m_reader.errorHere(
                KWLocalizedString("the id “%1” stands in “%2” a second time").arg(twin.sid, kind));
        m_idsRead.insert(twin.sid);
        if constexpr (std::same_as<Twin, KWUserModel>)
            m_accounts.admit(twin);
        else if (!twin.userID.isEmpty() && !m_accounts.isKnown(twin.userID))
            return m_reader.errorHere(
                KWLocalizedString("the record “%1” in “%2” belongs to no account").arg(twin.sid, kind));
        return twin;
    }

    template <class Twin>
    void merge(Twin twin)
    {
        const std::optional<Twin> own = RecordMapper<Twin>::find(m_connection, twin.sid);
        if (own && own->modifiedTime >= twin.modifiedTime) {
            ++m_summary.kept;
            return;
        }
        if constexpr (std::same_as<Twin, KWUserModel>)
            if (own) twin.isSignedIn = own->isSignedIn;
        try {
            if (own)
                RecordMapper<Twin>::update(m_connection, twin, difference(*own, twin));
            else
                RecordMapper<Twin>::insert(m_connection, twin);
            ++(own ? m_summary.replaced : m_summary.added);
        } catch (const SQLite::Exception &exception) {
            // The name, the list or the day is taken by another record of the store.
            if (exception.getExtendedErrorCode() != SQLITE_CONSTRAINT_UNIQUE) throw;
            ++m_summary.kept;
        }
    }

    Result<void> checkReferences()
    {
        auto dangling = m_connection.prepare("SELECT \"table\", rowid, parent FROM pragma_foreign_key_check");
        if (!dangling->executeStep()) return {};
        const std::string table = dangling->getColumn(0).getString();
        auto row = m_connection.prepare("SELECT sid FROM " + table + " WHERE id = ?");
        row.bind(1, dangling->getColumn(1).getInt64());
        row->executeStep();
        return Error{KWLocalizedString("the record “%1” in “%2” belongs to one in “%3” that is not there")
                         .arg(QString::fromUtf8(row->getColumn(0).getText()), QString::fromStdString(table),
                              QString::fromUtf8(dangling->getColumn(2).getText()))};
    }

    DocumentReader m_reader;
    Connection &m_connection;
    AccountMerge m_accounts;
    ImportSummary m_summary;
    QSet<QString> m_namesRead;
    QSet<QString> m_idsRead; // of the kind that is being read
};

} // namespace

Result<ImportSummary> importStore(QIODevice &document, Store &store)
{
    Result<Store::Loan> connection = store.borrowConnection();
    if (!connection) return connection.error();
    try {
        WriteTransaction transaction{**connection};
        const Result<ImportSummary> summary = Importer{document, **connection}.run();
        if (!summary) return refusal(summary.error());
        transaction.commit();
        return summary;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
