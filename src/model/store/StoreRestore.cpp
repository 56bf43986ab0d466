#include "model/store/StoreBackups.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/CXClock.h"
#include "model/store/Connection.h"
#include "model/store/Store.h"
#include "model/store/StoreFailure.h"
#include "model/store/StoreIntegrity.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger restoreLog{u"backup"};

Error refusal(StoreProblem problem, const QString &file)
{
    switch (problem) {
    case StoreProblem::NewerVersion:
        return {
            storeText("“%1” was written by a newer version of Orvane, so nothing was restored.").arg(file)};
    case StoreProblem::NotAStore:
        return {storeText("“%1” is not an Orvane store, so nothing was restored.").arg(file)};
    case StoreProblem::Damaged:
        return {storeText("“%1” is damaged, so nothing was restored.").arg(file)};
    case StoreProblem::CannotWrite:
    case StoreProblem::Lost:
        break;
    }
    return {storeText("“%1” could not be copied into the data folder, so nothing was restored.").arg(file)};
}

/// The copy that is to become the store, under a name of its own until it is known to be good.
class Draft {
public:
    explicit Draft(const QString &store) : m_path(store + u".restoring"_s) { remove(); }
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    ~Draft() { remove(); }

    const QString &path() const { return m_path; }

    Result<void> take(const QString &file, const CXClock &clock) const
    {
        if (QFileInfo{file}.size() == 0) return refusal(StoreProblem::NotAStore, file);
        // A store that was set aside may still have its log beside it.
        for (const QString &suffix : {QString{}, u"-wal"_s}) {
            if (!QFile::exists(file + suffix)) continue;
            if (!QFile::copy(file + suffix, m_path + suffix)) return refusal(StoreProblem::CannotWrite, file);
            QFile::setPermissions(m_path + suffix, QFile::ReadOwner | QFile::WriteOwner);
        }
        return check(file, clock);
    }

private:
    Result<void> check(const QString &file, const CXClock &clock) const
    {
        const Store::Opening opening = Store::open(m_path, clock);
        if (!opening.store) return refusal(opening.problem, file);
        Result<Store::Loan> connection = opening.store->borrowConnection();
        if (!connection) return refusal(StoreProblem::Damaged, file);
        try {
            if (!damageIn(**connection)) return {};
        } catch (const SQLite::Exception &exception) {
            restoreLog.error(QString::fromUtf8(exception.what()));
        }
        return refusal(StoreProblem::Damaged, file);
    }

    void remove() const
    {
        for (const char *suffix : {"", "-wal", "-shm", "-journal"})
            QFile::remove(m_path + QLatin1StringView{suffix});
    }

    QString m_path;
};

// SQLite takes a file out of WAL mode only for its sole user.
bool isOpenElsewhere(const QString &store)
{
    try {
        Connection connection{store.toStdString(), Connection::Access::ReadWrite};
        connection.execute("PRAGMA journal_mode = DELETE");
        return false;
    } catch (const SQLite::Exception &exception) {
        // A store that cannot be read is nobody's.
        return exception.getErrorCode() == SQLITE_BUSY || exception.getErrorCode() == SQLITE_LOCKED;
    }
}

} // namespace

Result<QString> restoreStore(const QString &file, const DataFolders &folders, const CXClock &clock)
{
    const QFileInfo source{file};
    const QString store = folders.store();
    if (!source.isFile()) return Error{storeText("There is no file “%1”.").arg(file)};
    if (source.canonicalFilePath() == QFileInfo{store}.canonicalFilePath())
        return Error{storeText("“%1” is the store itself.").arg(file)};

    const Draft draft{store};
    if (const Result<void> taken = draft.take(file, clock); !taken) return taken.error();
    QString kept;
    // A log without its store would be taken for that of the next one.
    if (QFile::exists(store) || QFile::exists(store + u"-wal"_s)) {
        if (isOpenElsewhere(store))
            return Error{storeText("Another program has the store open, so nothing was restored.")};
        Result<QString> aside = Store::setAside(store, clock.localNow(), AsideReason::Replaced);
        if (!aside) return aside.error();
        kept = *aside;
    }
    if (QFile::rename(draft.path(), store)) return kept;
    if (!kept.isEmpty()) Store::move(QFileInfo{store}.path() + u'/' + kept, store);
    return refusal(StoreProblem::CannotWrite, file);
}
