#pragma once

#include <QString>

/// Where the program keeps its files.
struct DataFolders {
    QString data;   ///< the store, its backups, its lock and the log
    QString config; ///< the preferences

    /// `home`, when given, holds everything; else ORVANE_HOME does; else the XDG data and config folders
    /// each have a folder "orvane".
    static DataFolders locate(const QString &home);
    /// The two XDG folders.
    static DataFolders standard();

    QString store() const { return data + QStringLiteral("/store.sqlite"); }
    QString lock() const { return data + QStringLiteral("/lock"); }
    QString log() const { return data + QStringLiteral("/log"); }
    /// What the stopwatch keeps while the program does not run.
    QString stopwatch() const { return data + QStringLiteral("/stopwatch.json"); }
    /// One copy of the store a day.
    QString backups() const { return data + QStringLiteral("/backups"); }
    /// Stands there while the client runs.
    QString runMarker() const { return data + QStringLiteral("/running"); }
    /// Written by a process that has changed the store beside the one that holds the lock.
    QString outsideChange() const { return data + QStringLiteral("/outside-change"); }
};
