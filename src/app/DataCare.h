#pragma once

#include "app/ports/RelaunchPort.h"
#include "model/store/StoreBackups.h"

class KWUserDefaults;
class OrvaneKit;

/// What a person can do with the data as a whole: look at the backups, bring one back, write everything
/// into a file and take it from one. Main thread.
class DataCare {
public:
    DataCare(OrvaneKit &kit, RelaunchPort &relaunch) : m_kit(kit), m_relaunch(relaunch) {}

    QString folder() const;
    QList<StoreBackup> backups() const;

    /// Notes the backup and starts the program anew, for a store is replaced only while nobody has it open.
    /// Where it cannot be noted, nothing happens.
    Result<void> restore(const StoreBackup &backup);
    /// To be called at the start before the store is opened: restores what restore() has noted, once.
    /// Answers the error when that cannot be done; everything is as it was then.
    static Result<void> restoreWhatWasAsked(const DataFolders &folders, KWUserDefaults &defaults,
                                            const CXClock &clock);

    /// Writes every record into the file; see exportToFile().
    Result<void> exportTo(const QString &file);
    /// Takes the records of an exported file, and answers in words what came of it.
    Result<QString> importFrom(const QString &file);

private:
    OrvaneKit &m_kit;
    RelaunchPort &m_relaunch;
};
