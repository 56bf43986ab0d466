#include "views/alerts/CrashProtectionWindow.h"

#include "app/KWAbnormalDataCleanService.h"
#include "corvexkit/time/CXClock.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/BackupTitle.h"
#include "model/store/Store.h"
#include "model/store/StoreBackups.h"
#include "views/alerts/Alert.h"
#include "views/alerts/BackupChooser.h"
#include "views/alerts/ChoiceDialog.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString okText() { return KWLocalizedString("OK"); }

void tellFailure(const Error &error)
{
    Alert::run({KWLocalizedString("That did not work"), error.sentence, {okText()}});
}

// `kept` is the file of the tasks that were there; empty when there were none.
void tellRestored(const StoreBackup &backup, const QString &kept)
{
    const QString aside =
        KWLocalizedString("The tasks that were there are in “%1”, which stands among the backups now.");
    Alert::run({KWLocalizedString("%1 is restored").arg(titleOf(backup)),
                kept.isEmpty() ? QString{} : aside.arg(kept),
                {okText()}});
}

} // namespace

CrashProtectionWindow::CrashProtectionWindow(DataFolders folders, const CXClock &clock,
                                             KWAbnormalDataCleanService &diagnostics)
    : m_folders(std::move(folders)), m_clock(clock), m_diagnostics(diagnostics)
{
}

void CrashProtectionWindow::runModal(const QString &title, const QString &message,
                                     std::function<void()> continuation)
{
    Outcome outcome = Outcome::AskAgain;
    while (outcome == Outcome::AskAgain)
        outcome = carryOut(ask(title, message));
    if (outcome == Outcome::Start)
        continuation();
    else
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

CrashProtectionWindow::Choice CrashProtectionWindow::ask(const QString &title, const QString &message) const
{
    const bool hasStore = QFile::exists(m_folders.store());
    const bool hasBackup = !StoreBackups{m_folders}.list().isEmpty();
    ChoiceDialog dialog{title, message};
    dialog.addChoice(int(Choice::Start), KWLocalizedString("Start Orvane"));
    if (hasBackup) dialog.addChoice(int(Choice::RestoreBackup), KWLocalizedString("Restore a Backup…"));
    if (hasStore)
        dialog.addChoice(int(Choice::StartEmpty), KWLocalizedString("Set Everything Aside and Start Empty"));
    dialog.addChoice(int(Choice::SendDiagnostics), KWLocalizedString("Send Diagnostic Data…"));
    dialog.addChoice(int(Choice::Quit), KWLocalizedString("Quit"));
    return Choice(dialog.choose());
}

CrashProtectionWindow::Outcome CrashProtectionWindow::carryOut(Choice choice)
{
    switch (choice) {
    case Choice::Start:
        return Outcome::Start;
    case Choice::RestoreBackup:
        return restoreBackup();
    case Choice::StartEmpty:
        return startEmpty();
    case Choice::SendDiagnostics:
        return sendDiagnostics();
    case Choice::Quit:
        break;
    }
    return Outcome::Quit;
}

CrashProtectionWindow::Outcome CrashProtectionWindow::restoreBackup()
{
    const std::optional<StoreBackup> backup = chooseBackup(StoreBackups{m_folders}.list());
    if (!backup) return Outcome::AskAgain;
    if (const Result<QString> kept = restoreStore(backup->path, m_folders, m_clock); !kept) {
        tellFailure(kept.error());
        return Outcome::AskAgain;
    } else {
        tellRestored(*backup, kept->isEmpty() ? QString{} : QDir{m_folders.data}.filePath(*kept));
    }
    return Outcome::Start;
}

CrashProtectionWindow::Outcome CrashProtectionWindow::startEmpty()
{
    const Result<QString> kept = Store::startFresh(m_folders.store(), m_clock, AsideReason::FreshStart);
    if (!kept) {
        tellFailure(kept.error());
        return Outcome::AskAgain;
    }
    const QString sentence =
        KWLocalizedString("They are in “%1”. You get them back by “orvane restore” with that "
                          "file, or in the preferences, where it stands among the backups.");
    Alert::run({KWLocalizedString("Your tasks are set aside"),
                sentence.arg(QDir{m_folders.data}.filePath(*kept)),
                {okText()}});
    return Outcome::Start;
}

CrashProtectionWindow::Outcome CrashProtectionWindow::sendDiagnostics()
{
    if (Alert::run(m_diagnostics.announcement()) != 0) return Outcome::AskAgain;
    if (const Result<void> sent = m_diagnostics.send(); !sent) {
        tellFailure(sent.error());
        return Outcome::AskAgain;
    }
    return Outcome::Quit;
}
