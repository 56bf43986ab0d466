#pragma once

#include "model/store/SqlValue.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

/// One SQLite connection with its prepared statements. Used by one thread at a time. Its operations
/// throw SQLite::Exception; the contexts and the fetchers turn that into a `Result`.
class Connection {
public:
    enum class Access { ReadWrite, ReadWriteCreate };

    Connection(const std::string &path, Access access);

    SQLite::Database &database() { return m_database; }

    /// A prepared statement, reset and unbound when the handle goes.
    class Prepared {
    public:
        explicit Prepared(SQLite::Statement &statement) : m_statement(statement) {}
        Prepared(const Prepared &) = delete;
        Prepared &operator=(const Prepared &) = delete;
        ~Prepared();

        SQLite::Statement *operator->() { return &m_statement; }
        SQLite::Statement &operator*() { return m_statement; }
        void bind(int index, const SqlValue &value);
        void bind(const SqlValues &values);

    private:
        SQLite::Statement &m_statement;
    };

    Prepared prepare(std::string_view sql);
    void execute(const char *sql) { m_database.exec(sql); }

    /// Closing would otherwise copy the log into the file, which may be damaged.
    void leaveFileAsItIs();

    /// The first column of the first row, 0 when there is none.
    std::int64_t number(std::string_view sql, const SqlValues &values = {});

private:
    SQLite::Database m_database;
    std::unordered_map<std::string_view, std::unique_ptr<SQLite::Statement>> m_statements;
    std::vector<std::unique_ptr<std::string>> m_texts; // what the keys above point at
};

/// A write transaction, taken at once so that it never fails half-way for want of the lock; rolled back
/// unless committed.
class WriteTransaction {
public:
    explicit WriteTransaction(Connection &connection);
    WriteTransaction(const WriteTransaction &) = delete;
    WriteTransaction &operator=(const WriteTransaction &) = delete;
    ~WriteTransaction();

    void commit();

private:
    Connection &m_connection;
    bool m_isOpen = true;
};
