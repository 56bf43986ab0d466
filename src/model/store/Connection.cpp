#include "model/store/Connection.h"

#include "model/store/SearchTokenizer.h"
#include "model/store/WordsFunction.h"

#include <sqlite3.h>

namespace {

constexpr int busyTimeoutMilliseconds = 5000;

int flagsFor(Connection::Access access)
{
    return access == Connection::Access::ReadWriteCreate ? SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE
                                                         : SQLite::OPEN_READWRITE;
}

} // namespace

Connection::Connection(const std::string &path, Access access)
    : m_database(path, flagsFor(access) | SQLite::OPEN_NOMUTEX, busyTimeoutMilliseconds)
{
    registerSearchTokenizer(m_database.getHandle());
    registerWordsFunction(m_database.getHandle());
}

Connection::Prepared::~Prepared()
{
    try {
        m_statement.reset();
        m_statement.clearBindings();
    } catch (const SQLite::Exception &) {
        // reset() repeats the error of the step that failed, which was thrown then.
    }
}

void Connection::Prepared::bind(int index, const SqlValue &value)
{
    if (const auto *number = std::get_if<std::int64_t>(&value))
        m_statement.bind(index, *number);
    else
        m_statement.bind(index, std::get<QString>(value).toStdString());
}

void Connection::Prepared::bind(const SqlValues &values)
{
    int index = 0;
    for (const SqlValue &value : values)
        bind(++index, value);
}

Connection::Prepared Connection::prepare(std::string_view sql)
{
    auto found = m_statements.find(sql);
    if (found == m_statements.end()) {
        auto text = std::make_unique<std::string>(sql);
        auto statement = std::make_unique<SQLite::Statement>(m_database, *text);
        found = m_statements.emplace(*text, std::move(statement)).first;
        m_texts.push_back(std::move(text));
    }
    return Prepared{*found->second};
}

void Connection::leaveFileAsItIs()
{
    sqlite3_db_config(m_database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

std::int64_t Connection::number(std::string_view sql, const SqlValues &values)
{
    Prepared statement = prepare(sql);
    statement.bind(values);
    return statement->executeStep() ? statement->getColumn(0).getInt64() : 0;
}

WriteTransaction::WriteTransaction(Connection &connection) : m_connection(connection)
{
    m_connection.execute("BEGIN IMMEDIATE");
}

WriteTransaction::~WriteTransaction()
{
    if (!m_isOpen) return;
    try {
        m_connection.execute("ROLLBACK");
    } catch (const SQLite::Exception &) {
        // SQLite has rolled back by itself already (a full disk, for one).
    }
}

void WriteTransaction::commit()
{
    m_connection.execute("COMMIT");
    m_isOpen = false;
}
