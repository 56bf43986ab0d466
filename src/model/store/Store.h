#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/store/ObjectContext.h"

#include <QString>

#include <memory>
#include <mutex>
#include <vector>

/// Why a store cannot be opened. In every case its file is left as it is.
enum class StoreProblem {
    CannotWrite,  ///< the data folder or the file cannot be written
    NewerVersion, ///< a later version of the program wrote it
    NotAStore,    ///< the file is something else
    Damaged,
    Lost, ///< the file is missing or empty, and yet there are backups of it
};

/// Why a store was moved aside; the name under which it is kept says it.
enum class AsideReason {
    Damaged,    ///< "store.damaged-2030-05-01T090000.sqlite"
    Replaced,   ///< "store.replaced-…": another was restored in its place
    FreshStart, ///< "store.kept-…": the person wanted to start with an empty one
};

/// The file that holds everything, a SQLite database in WAL mode. Hands out contexts, each over a
/// connection of its own; connections are kept and used again. Any thread.
class Store {
public:
    struct Opening {
        std::unique_ptr<Store> store; ///< none when there is a problem
        StoreProblem problem{};
        QString sentence; ///< the problem for a person
    };

    /// Whether the file begins as a store of ours does. It may be of another version, or damaged.
    static bool looksLikeStore(const QString &path);

    /// Opens the store at `path`, makes it where there is none, and brings its schema up to date.
    static Opening open(const QString &path, const CXClock &clock);

    /// Renames the file of a store and what belongs to it, for without its log it lacks the latest saves:
    /// all of it or nothing.
    static bool move(const QString &from, const QString &to);
    /// Moves a store aside, so that another can be put there: answers the name it was kept under, with "-2"
    /// and so on behind the time when that is taken.
    static Result<QString> setAside(const QString &path, LocalTime now,
                                    AsideReason reason = AsideReason::Damaged);
    /// Moves it aside and puts an empty store in its place.
    static Result<QString> startFresh(const QString &path, const CXClock &clock, AsideReason reason);

    /// The problem with the store at `path` in a sentence for a person.
    static QString sentenceFor(StoreProblem problem, const QString &path);

    ~Store();

    const QString &path() const { return m_path; }
    const CXClock &clock() const { return m_clock; }

    /// A context of its own, for the calling thread.
    Result<std::unique_ptr<ObjectContext>> makeContext();

    /// A connection lent until the handle goes.
    class Loan {
    public:
        Loan(Store &store, std::unique_ptr<Connection> connection);
        Loan(Loan &&) noexcept;
        ~Loan();
        Connection &operator*() { return *m_connection; }
        Connection *operator->() { return m_connection.get(); }
        std::unique_ptr<Connection> take();

    private:
        Store *m_store;
        std::unique_ptr<Connection> m_connection;
    };
    Result<Loan> borrowConnection();
    void giveBack(std::unique_ptr<Connection> connection);

private:
    Store(QString path, const CXClock &clock);
    std::unique_ptr<Connection> connect(); // throws

    QString m_path;
    const CXClock &m_clock;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<Connection>> m_idle;
};
