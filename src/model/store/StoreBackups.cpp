#include "model/store/StoreBackups.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/TimeText.h"
#include "model/store/Connection.h"
#include "model/store/Store.h"
#include "model/store/StoreFailure.h"
#include "model/store/StoreIntegrity.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <SQLiteCpp/Backup.h>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger backupLog{u"backup"};

QString dailyName(Day day) { return u"store-%1.sqlite"_s.arg(TimeText::fromDay(day)); }

std::optional<StoreBackup> dailyNamed(const QFileInfo &file)
{
    static const QRegularExpression pattern{u"^store-(\\d{4}-\\d\\d-\\d\\d)\\.sqlite$"_s};
    const auto day = TimeText::toDay(pattern.match(file.fileName()).captured(1));
    if (!day) return std::nullopt;
    return StoreBackup{file.filePath(), LocalTime{*day}, StoreBackup::Origin::Daily};
}

std::optional<StoreBackup> setAsideNamed(const QFileInfo &file)
{
    static const QRegularExpression pattern{
        u"^store\\.(?:replaced|kept)-(\\d{4}-\\d\\d-\\d\\dT\\d\\d)(\\d\\d)(\\d\\d)(?:-\\d+)?\\.sqlite$"_s};
    const QRegularExpressionMatch match = pattern.match(file.fileName());
    const auto time = TimeText::toLocalTime(
        QStringList{match.captured(1), match.captured(2), match.captured(3)}.join(u':'));
    if (!time) return std::nullopt;
    return StoreBackup{file.filePath(), *time, StoreBackup::Origin::SetAside};
}

using Reader = std::optional<StoreBackup> (*)(const QFileInfo &);

QList<StoreBackup> backupsIn(const QString &folder, Reader read)
{
    QList<StoreBackup> found;
    for (const QFileInfo &file : QDir{folder}.entryInfoList({u"store*.sqlite"_s}, QDir::Files))
        if (const auto backup = read(file)) found.append(*backup);
    std::ranges::sort(found, std::greater{}, &StoreBackup::time);
    return found;
}

// One file, without a log beside it.
Result<void> writeCopy(const QString &file, Connection &store)
{
    try {
        {
            Connection copy{file.toStdString(), Connection::Access::ReadWriteCreate};
            SQLite::Backup backup{copy.database(), store.database()};
            // All at once: from one moment of the store, however much is written meanwhile.
            if (backup.executeStep(-1) != SQLite::OK && backup.getRemainingPageCount() > 0)
                return Error{storeText("Another program keeps the store locked, so no backup was made.")};
        }
        Connection copy{file.toStdString(), Connection::Access::ReadWrite};
        copy.execute("PRAGMA journal_mode = DELETE");
        if (const auto damage = damageIn(copy)) {
            backupLog.error(*damage);
            return Error{storeText("The store file is damaged, so no backup was made.")};
        }
        return {};
    } catch (const SQLite::Exception &exception) {
        backupLog.error(QString::fromUtf8(exception.what()));
        return Error{storeText("“%1” could not be written: %2.")
                         .arg(QFileInfo{file}.path(), QString::fromUtf8(exception.what()))};
    }
}

void removeParts(const QString &file)
{
    for (const char *suffix : {"", "-journal", "-wal", "-shm"})
        QFile::remove(file + QLatin1StringView{suffix});
}

QString partialNameOf(const QString &file)
{
    return u"%1.partial-%2"_s.arg(file).arg(QCoreApplication::applicationPid());
}

// QFile::rename does not replace.
bool renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(),
                            error);
    return !error;
}

bool isSound(const QString &file)
{
    try {
        Connection connection{file.toStdString(), Connection::Access::ReadWrite};
        return !damageIn(connection);
    } catch (const SQLite::Exception &) {
        return false;
    }
}

} // namespace

QList<StoreBackup> StoreBackups::daily() const { return backupsIn(m_folders.backups(), dailyNamed); }

QList<StoreBackup> StoreBackups::list() const
{
    QList<StoreBackup> all = daily() + backupsIn(m_folders.data, setAsideNamed);
    std::ranges::stable_sort(all, std::greater{}, &StoreBackup::time);
    return all;
}

bool StoreBackups::isDue(Day today) const
{
    return std::ranges::none_of(daily(),
                                [&](const StoreBackup &each) { return each.time == LocalTime{today}; });
}

Result<QString> StoreBackups::makeDaily(Connection &store, Day today) const
{
    if (!QDir{}.mkpath(m_folders.backups()))
        return Error{storeText("The folder “%1” cannot be made.").arg(m_folders.backups())};
    const QString file = QDir{m_folders.backups()}.filePath(dailyName(today));
    if (const Result<void> copied = copyTo(file, store); !copied) return copied.error();
    dropOld(today);
    return file;
}

void StoreBackups::dropOld(Day today) const
{
    QList<StoreBackup> others = daily();
    // A clock that was wrong for a while must not cost the backup just made.
    others.removeIf([&](const StoreBackup &each) { return each.time == LocalTime{today}; });
    for (const StoreBackup &each : others.mid(kept - 1))
        QFile::remove(each.path);
    const QDir folder{m_folders.backups()};
    for (const QString &name : folder.entryList({u"store-*.partial-*"_s}, QDir::Files))
        if (!name.startsWith(dailyName(today))) QFile::remove(folder.filePath(name));
}

std::optional<StoreBackup> StoreBackups::newestGood() const
{
    const QList<StoreBackup> all = list();
    const auto found = std::ranges::find_if(all, isSound, &StoreBackup::path);
    return found == all.end() ? std::nullopt : std::optional{*found};
}

Result<void> StoreBackups::copyTo(const QString &file, Connection &store)
{
    const QFileInfo target{file};
    if (target.exists() && target.size() > 0 && !Store::looksLikeStore(file))
        return Error{storeText("“%1” is something else than a backup; it was left untouched.").arg(file)};
    const QFileInfo own{QString::fromStdString(store.database().getFilename())};
    if (target.exists() && target.canonicalFilePath() == own.canonicalFilePath())
        return Error{storeText("“%1” is the store itself; choose another name.").arg(file)};

    const QString partial = partialNameOf(file);
    removeParts(partial);
    Result<void> written = writeCopy(partial, store);
    if (written && !renameOver(partial, file))
        written = Error{storeText("“%1” cannot be written.").arg(file)};
    if (!written) removeParts(partial);
    return written;
}
