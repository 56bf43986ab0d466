#include "model/store/Store.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/TimeText.h"
#include "model/store/Connection.h"
#include "model/store/Migrations.h"
#include "model/store/StoreFailure.h"
#include "model/store/StoreHeader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger storeFileLog{u"store"};

Store::Opening failed(StoreProblem problem, const QString &path)
{
    Store::Opening opening{nullptr, problem, Store::sentenceFor(problem, path)};
    storeFileLog.error(opening.sentence);
    return opening;
}

// What only an opened store tells; still without a change to it.
std::optional<StoreProblem> problemInSchema(Connection &connection)
{
    // The header may be older than the log.
    if (connection.number("PRAGMA user_version") > Migrations::currentVersion())
        return StoreProblem::NewerVersion;
    const bool holdsForeignTables =
        connection.number("SELECT count(*) FROM sqlite_schema, pragma_user_version WHERE user_version = 0") >
        0;
    if (holdsForeignTables) return StoreProblem::Damaged;
    return std::nullopt;
}

StoreProblem problemOf(const SQLite::Exception &exception)
{
    switch (exception.getErrorCode()) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR: // the schema lacks what it must have
        return StoreProblem::Damaged;
    default:
        return StoreProblem::CannotWrite;
    }
}

// Where two open a fresh file at once, one is refused without the usual wait for a lock.
void turnToWriteAheadLog(Connection &connection)
{
    constexpr int attempts = 500;
    constexpr int pauseMilliseconds = 10;
    for (int attempt = 1;; ++attempt) {
        try {
            connection.execute("PRAGMA journal_mode = WAL");
            return;
        } catch (const SQLite::Exception &exception) {
            if (exception.getErrorCode() != SQLITE_BUSY || attempt == attempts) throw;
            sqlite3_sleep(pauseMilliseconds);
        }
    }
}

void configure(Connection &connection)
{
    // An acknowledged save survives loss of power: WAL with a flush at every commit.
    connection.execute("PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON; PRAGMA cache_size = -4000;"
                       " PRAGMA temp_store = MEMORY;");
}

constexpr std::array partSuffixes{"-wal", "-shm", ""};

QString wordFor(AsideReason reason)
{
    switch (reason) {
    case AsideReason::Damaged:
        return u"damaged"_s;
    case AsideReason::Replaced:
        return u"replaced"_s;
    case AsideReason::FreshStart:
        return u"kept"_s;
    }
    return {};
}

QString unusedName(const QDir &folder, const QString &base, const QString &suffix)
{
    for (int number = 1;; ++number) {
        const QString name = (number == 1 ? base : u"%1-%2"_s.arg(base).arg(number)) + u'.' + suffix;
        if (std::ranges::none_of(partSuffixes, [&](const char *each) {
                return folder.exists(name + QLatin1StringView{each});
            }))
            return name;
    }
}

} // namespace

Store::Store(QString path, const CXClock &clock) : m_path(std::move(path)), m_clock(clock) {}

Store::~Store() = default;

Store::Opening Store::open(const QString &path, const CXClock &clock)
{
    const QFileInfo folder{QFileInfo{path}.absolutePath()};
    if (!QDir{}.mkpath(folder.filePath()) || !folder.isWritable())
        return failed(StoreProblem::CannotWrite, path);
    if (const auto problem = StoreHeader::problemAt(path)) return failed(*problem, path);
    if (QFile::exists(path) && !QFileInfo{path}.isWritable()) return failed(StoreProblem::CannotWrite, path);

    std::unique_ptr<Store> store{new Store{path, clock}};
    std::unique_ptr<Connection> connection;
    try {
        connection = std::make_unique<Connection>(path.toStdString(), Connection::Access::ReadWriteCreate);
        // The first write of a new file, so that every store of ours is known by its header.
        if (connection->number("PRAGMA application_id") != StoreHeader::applicationID)
            connection->execute(
                ("PRAGMA application_id = " + std::to_string(StoreHeader::applicationID)).c_str());
        if (const auto problem = problemInSchema(*connection)) {
            connection->leaveFileAsItIs();
            return failed(*problem, path);
        }
        turnToWriteAheadLog(*connection);
        configure(*connection);
        Migrations::apply(*connection);
        store->giveBack(std::move(connection));
        return {std::move(store), {}, {}};
    } catch (const SQLite::Exception &exception) {
        storeFileLog.error(QString::fromUtf8(exception.what()));
        if (connection) connection->leaveFileAsItIs();
        return failed(problemOf(exception), path);
    }
}

bool Store::looksLikeStore(const QString &path)
{
    const std::optional<StoreProblem> problem = StoreHeader::problemAt(path);
    return QFileInfo{path}.size() > 0 && problem != StoreProblem::NotAStore &&
           problem != StoreProblem::CannotWrite;
}

QString Store::sentenceFor(StoreProblem problem, const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    switch (problem) {
    case StoreProblem::CannotWrite:
        return storeText("Orvane cannot write its data in “%1”.").arg(QFileInfo{shown}.path());
    case StoreProblem::NewerVersion:
        return storeText("“%1” was written by a newer version of Orvane; this version leaves it untouched.")
            .arg(shown);
    case StoreProblem::NotAStore:
        return storeText("“%1” is not an Orvane store; it was left untouched.").arg(shown);
    case StoreProblem::Damaged:
        return storeText("The store “%1” is damaged; it was left untouched.").arg(shown);
    case StoreProblem::Lost:
        return storeText("The store “%1” is gone, but there are backups of it.").arg(shown);
    }
    return {};
}

bool Store::move(const QString &from, const QString &to)
{
    for (std::size_t i = 0; i < partSuffixes.size(); ++i) {
        const auto renamePart = [&](std::size_t part, const QString &source, const QString &target) {
            const QLatin1StringView suffix{partSuffixes[part]};
            return !QFile::exists(source + suffix) || QFile::rename(source + suffix, target + suffix);
        };
        if (renamePart(i, from, to)) continue;
        while (i-- > 0)
            renamePart(i, to, from);
        return false;
    }
    return true;
}

Result<QString> Store::setAside(const QString &path, LocalTime now, AsideReason reason)
{
    QString time = TimeText::fromLocalTime(now, TimeText::Fraction::Never);
    time.remove(u':');
    const QFileInfo info{path};
    const QString kept = unusedName(
        info.dir(), u"%1.%2-%3"_s.arg(info.completeBaseName(), wordFor(reason), time), info.suffix());
    if (!move(path, info.dir().filePath(kept)))
        return Error{storeText("“%1” could not be moved aside.").arg(path)};
    return kept;
}

Result<QString> Store::startFresh(const QString &path, const CXClock &clock, AsideReason reason)
{
    Result<QString> kept = setAside(path, clock.localNow(), reason);
    if (!kept) return kept;
    const Opening fresh = open(path, clock);
    return fresh.store ? kept : Error{fresh.sentence};
}

std::unique_ptr<Connection> Store::connect()
{
    auto connection = std::make_unique<Connection>(m_path.toStdString(), Connection::Access::ReadWrite);
    configure(*connection);
    return connection;
}

Result<Store::Loan> Store::borrowConnection()
{
    {
        const std::scoped_lock lock{m_mutex};
        if (!m_idle.empty()) {
            auto connection = std::move(m_idle.back());
            m_idle.pop_back();
            return Loan{*this, std::move(connection)};
        }
    }
    try {
        return Loan{*this, connect()};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

void Store::giveBack(std::unique_ptr<Connection> connection)
{
    const std::scoped_lock lock{m_mutex};
    m_idle.push_back(std::move(connection));
}

Result<std::unique_ptr<ObjectContext>> Store::makeContext()
{
    Result<Loan> loan = borrowConnection();
    if (!loan) return loan.error();
    return std::make_unique<ObjectContext>(loan->take(), m_clock);
}

Store::Loan::Loan(Store &store, std::unique_ptr<Connection> connection)
    : m_store(&store), m_connection(std::move(connection))
{
}

Store::Loan::Loan(Loan &&) noexcept = default;

Store::Loan::~Loan()
{
    if (m_connection) m_store->giveBack(std::move(m_connection));
}

std::unique_ptr<Connection> Store::Loan::take() { return std::move(m_connection); }
