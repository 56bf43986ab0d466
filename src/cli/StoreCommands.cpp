#include "cli/StoreCommands.h"

#include "app/FolderLock.h"
#include "cli/CommandText.h"
#include "model/OrvaneKit.h"
#include "model/exchange/ExchangeFile.h"
#include "model/exchange/StoreExport.h"
#include "model/store/OutsideChange.h"
#include "model/store/StoreBackups.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

ExitStatus couldNot(const Error &error, CommandStreams streams)
{
    return failWith(error.sentence, ExitStatus::CouldNot, streams.err);
}

ExitStatus wrongUsage(const char *sentence, CommandStreams streams)
{
    return failWith(commandText(sentence), ExitStatus::WrongUsage, streams.err);
}

constexpr const char *oneFile = "Give the name of one file.";

QString absolute(const QString &file) { return QDir::current().absoluteFilePath(file); }

Error isFolder(const QString &file)
{
    return {commandText("“%1” is a folder; give the name of a file.").arg(file)};
}

// Before the store says it in its own words.
Result<void> canBackUpInto(const QString &file)
{
    const QFileInfo target{file};
    const QFileInfo folder{target.absolutePath()};
    if (target.isDir()) return isFolder(file);
    if (!folder.isDir())
        return Error{commandText("There is no folder “%1”, so no backup was made.").arg(folder.filePath())};
    if (!folder.isWritable())
        return Error{commandText("“%1” cannot be written, so no backup was made.").arg(folder.filePath())};
    return {};
}

Result<QString> backUp(const QStringList &files, OrvaneKit &kit)
{
    Result<Store::Loan> connection = kit.store().borrowConnection();
    if (!connection) return connection.error();
    if (files.isEmpty()) return StoreBackups{kit.folders()}.makeDaily(**connection, kit.clock().today());
    const QString file = absolute(files.first());
    if (const Result<void> can = canBackUpInto(file); !can) return can.error();
    if (const Result<void> copied = StoreBackups::copyTo(file, **connection); !copied) return copied.error();
    return files.first();
}

} // namespace

ExitStatus runBackup(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    if (invocation.arguments.size() > 1) return wrongUsage(oneFile, streams);
    const Result<QString> file = backUp(invocation.arguments, kit);
    if (!file) return couldNot(file.error(), streams);
    streams.out << terminalText(*file) << '\n';
    return ExitStatus::Done;
}

ExitStatus runRestore(const Invocation &invocation, const DataFolders &folders, const CXClock &clock,
                      CommandStreams streams)
{
    if (invocation.arguments.size() != 1) return wrongUsage(oneFile, streams);
    const QString file = absolute(invocation.arguments.first());
    if (QFileInfo{file}.isDir()) return couldNot(isFolder(file), streams);
    FolderLock lock{folders.lock()};
    switch (lock.tryLock()) {
    case FolderLock::Outcome::HeldByAnother:
        return couldNot({commandText("Orvane is open on this folder; quit it first.")}, streams);
    case FolderLock::Outcome::CannotWrite:
        return couldNot({commandText("“%1” cannot be written.").arg(folders.data)}, streams);
    case FolderLock::Outcome::Taken:
        break;
    }
    const Result<QString> kept = restoreStore(file, folders, clock);
    if (!kept) return couldNot(kept.error(), streams);
    if (!kept->isEmpty())
        streams.out << terminalText(commandText("The store that was there is kept as “%1”.")
                                        .arg(QDir{folders.data}.filePath(*kept)))
                    << '\n';
    return ExitStatus::Done;
}

ExitStatus runExport(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    if (invocation.arguments.size() > 1) return wrongUsage(oneFile, streams);
    const auto print = [&streams](const QByteArray &piece) {
        streams.out << QString::fromUtf8(piece);
        return streams.out.status() == QTextStream::Ok;
    };
    const Result<void> done = invocation.arguments.isEmpty()
                                  ? exportStore(kit.store(), print)
                                  : exportToFile(absolute(invocation.arguments.first()), kit.store());
    return done ? ExitStatus::Done : couldNot(done.error(), streams);
}

ExitStatus runImport(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    if (invocation.arguments.size() != 1) return wrongUsage(oneFile, streams);
    const Result<ImportSummary> summary = importFromFile(absolute(invocation.arguments.first()), kit.store());
    if (!summary) return couldNot(summary.error(), streams);
    streams.out << commandText("Records added: %1, replaced: %2, kept as they were: %3.")
                       .arg(summary->added)
                       .arg(summary->replaced)
                       .arg(summary->kept)
                << '\n';
    // A window that shows the records late is no failure of the command.
    if (summary->added + summary->replaced > 0) static_cast<void>(bool(announceOutsideChange(kit.folders())));
    return ExitStatus::Done;
}
