#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/settings/DataFolders.h"

#include <QList>

#include <optional>

class Connection;
class CXClock;

/// A store that can take the place of the present one.
struct StoreBackup {
    enum class Origin {
        Daily,    ///< made in the background, once a day
        SetAside, ///< was the store until another took its place
    };

    QString path;
    LocalTime time; ///< of a daily one, the midnight that begins its day
    Origin origin = Origin::Daily;

    bool operator==(const StoreBackup &) const = default;
};

/// The backups of a data folder: one a day, of the last seven days that had one, each a whole store in one
/// file. A backup has its name only once it is whole, on the disk and checked. Any thread.
class StoreBackups {
public:
    static constexpr qsizetype kept = 7;

    explicit StoreBackups(DataFolders folders) : m_folders(std::move(folders)) {}

    /// Everything that can be restored, newest first: daily backups, and stores that were set aside
    /// undamaged.
    QList<StoreBackup> list() const;
    /// No daily backup is of `today` yet.
    bool isDue(Day today) const;

    /// Makes the backup of `today`, in place of an earlier one of that day, and drops what is more than
    /// `kept`. `store` is a connection to the store; it and others may be written meanwhile. Answers the
    /// path. A damaged store is not backed up: the good backups stay.
    Result<QString> makeDaily(Connection &store, Day today) const;

    /// The newest of list() that is sound. Reads each from end to end until one is.
    std::optional<StoreBackup> newestGood() const;

    /// Writes the store into `file`, which is replaced when it is a store already and left when it is
    /// anything else.
    static Result<void> copyTo(const QString &file, Connection &store);

private:
    QList<StoreBackup> daily() const;
    void dropOld(Day today) const;

    DataFolders m_folders;
};

/// Puts a copy of `file`, a backup or any other store of this or an earlier version, in the place of the
/// folder's store, which is kept aside. Only while no connection to the store is open; the caller holds
/// the folder. Answers the name under which the store that was there is kept, empty when there was none.
/// On failure everything is as it was.
Result<QString> restoreStore(const QString &file, const DataFolders &folders, const CXClock &clock);
