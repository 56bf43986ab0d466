#include "model/exchange/StoreExport.h"

#include "model/exchange/ExchangeFormat.h"
#include "model/records/EveryRecord.h"
#include "model/records/RecordJson.h"
#include "model/store/Connection.h"
#include "model/store/RecordMapper.h"
#include "model/store/Store.h"
#include "model/store/StoreFailure.h"

#include <QJsonDocument>

namespace {

constexpr int pageLength = 500;

struct SinkIsFull {};

/// Holds one state of the store for reading.
class ReadTransaction {
public:
    explicit ReadTransaction(Connection &connection) : m_connection(connection)
    {
        m_connection.execute("BEGIN");
    }
    ReadTransaction(const ReadTransaction &) = delete;
    ReadTransaction &operator=(const ReadTransaction &) = delete;
    ~ReadTransaction()
    {
        try {
            m_connection.execute("ROLLBACK");
        } catch (const SQLite::Exception &) {
            // It has ended by itself.
        }
    }

private:
    Connection &m_connection;
};

class Exporter {
public:
    Exporter(Connection &connection, const DocumentSink &sink) : m_connection(connection), m_sink(sink) {}

    void run()
    {
        write(QByteArray{"{\"format\": \""} + exchange::formatName +
              "\",\n\"version\": " + QByteArray::number(exchange::formatVersion));
#define WRITE_KIND(Record) writeKind<Record::Model>();
        EVERY_RECORD(WRITE_KIND)
#undef WRITE_KIND
        write("}\n");
    }

private:
    template <class Twin>
    void writeKind()
    {
        write(QByteArray{",\n\""} + Twin::tableName + "\": [");
        QString last;
        bool isFirst = true;
        for (;;) {
            const QList<Twin> page = RecordMapper<Twin>::select(
                m_connection, {.where = "sid > ?", .values = {last}, .orderBy = "sid", .limit = pageLength});
            for (const Twin &each : page) {
                write(isFirst ? "\n" : ",\n");
                write(QJsonDocument{toJson(each)}.toJson(QJsonDocument::Compact));
                isFirst = false;
            }
            if (page.size() < pageLength) break;
            last = page.last().sid;
        }
        write(isFirst ? "]" : "\n]");
    }

    void write(const QByteArray &piece)
    {
        if (!m_sink(piece)) throw SinkIsFull{};
    }

    Connection &m_connection;
    const DocumentSink &m_sink;
};

} // namespace

Result<void> exportStore(Store &store, const DocumentSink &sink)
{
    Result<Store::Loan> connection = store.borrowConnection();
    if (!connection) return connection.error();
    try {
        const ReadTransaction moment{**connection};
        Exporter{**connection, sink}.run();
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    } catch (const SinkIsFull &) {
        return Error{storeText("The export could not be written; the disk may be full.")};
    }
}
