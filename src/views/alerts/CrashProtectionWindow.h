#pragma once

#include "app/CrashProtectionAlert.h"
#include "model/settings/DataFolders.h"

class CXClock;
class KWAbnormalDataCleanService;

/// The alert after several starts that ended at once. The person starts normally, from a backup, or with an
/// empty store while the present one is kept; sends diagnostic data; or quits. A choice that could not be
/// carried out says why, and the alert comes again. Nothing is ever deleted.
class CrashProtectionWindow : public CrashProtectionAlert {
public:
    /// All of them outlive it. Nobody may have the store open while it runs.
    CrashProtectionWindow(DataFolders folders, const CXClock &clock, KWAbnormalDataCleanService &diagnostics);

    void runModal(const QString &title, const QString &message, std::function<void()> continuation) override;

private:
    enum class Choice { Start, RestoreBackup, StartEmpty, SendDiagnostics, Quit };
    enum class Outcome { Start, AskAgain, Quit };

    Choice ask(const QString &title, const QString &message) const;
    Outcome carryOut(Choice choice);
    Outcome restoreBackup();
    Outcome startEmpty();
    Outcome sendDiagnostics();

    DataFolders m_folders;
    const CXClock &m_clock;
    KWAbnormalDataCleanService &m_diagnostics;
};
