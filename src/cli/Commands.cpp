#include "cli/Commands.h"

#include "cli/AddCommand.h"
#include "cli/CommandText.h"
#include "cli/DemoAccount.h"
#include "cli/FixedClock.h"
#include "cli/ListCommand.h"
#include "cli/OccurrencesCommand.h"
#include "cli/RunSettings.h"
#include "cli/ScriptCommand.h"
#include "cli/StatusCommand.h"
#include "cli/StoreCommands.h"
#include "cli/TimeArgument.h"
#include "corvexkit/time/SystemClock.h"
#include "integration/scripting/KWScriptCommand.h"
#include "model/OrvaneKit.h"
#include "model/store/OutsideChange.h"

#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

// A client that has the folder open reads again what the command saved.
class ChangeReport {
public:
    explicit ChangeReport(OrvaneKit &kit)
        : m_folders(kit.folders())
        , m_registration(kit.bus().registerEventBus([this](const StoreChange &) { m_hasChanges = true; }))
    {
    }
    ChangeReport(const ChangeReport &) = delete;
    ChangeReport &operator=(const ChangeReport &) = delete;
    ~ChangeReport()
    {
        // The tasks are saved; a window that shows them late is no failure of the command.
        if (m_hasChanges) static_cast<void>(bool(announceOutsideChange(m_folders)));
    }

private:
    DataFolders m_folders;
    bool m_hasChanges = false;
    KWEventBus::Registration m_registration;
};

/// The folder a command works on, for as long as it does.
class CommandHome {
public:
    explicit CommandHome(const Invocation &invocation) : m_folders(DataFolders::locate(invocation.home))
    {
        // A dry run leaves nothing behind, nor does the demo of a moment.
        const bool wouldBeMade = invocation.isDryRun && !QFile::exists(m_folders.store());
        const bool isMomentary = invocation.isDemo && invocation.home.isEmpty();
        if (wouldBeMade || isMomentary) m_folders = DataFolders::locate(m_throwAway.emplace().path());
    }
    const DataFolders &folders() const { return m_folders; }

private:
    std::optional<QTemporaryDir> m_throwAway;
    DataFolders m_folders;
};

ExitStatus run(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const ChangeReport report{kit};
    if (invocation.command == u"add") return runAdd(invocation, kit, streams);
    if (invocation.command == u"list") return runList(invocation, kit, streams);
    if (isScriptCommand(invocation.command)) return runScriptCommand(invocation, kit, streams);
    if (invocation.command == u"backup") return runBackup(invocation, kit, streams);
    if (invocation.command == u"export") return runExport(invocation, kit, streams);
    if (invocation.command == u"import") return runImport(invocation, kit, streams);
    const KWTaskStatus status = invocation.command == u"done" ? KWTaskStatusCompleted : KWTaskStatusOpen;
    return runStatus(status, invocation, kit, streams);
}

Result<std::optional<Instant>> nowOf(const Invocation &invocation, const CXTimeZone &zone)
{
    if (invocation.now.isEmpty()) return std::optional<Instant>{};
    const Result<Instant> now = readTime(invocation.now, zone);
    if (!now) return now.error();
    return std::optional{*now};
}

// Commands work for somebody who has signed out as well, and leave it at that. Whoever adds the first task
// on a fresh computer gets the local account that the window would make. What other programs are answered
// depends on who is signed in.
Result<void> prepareAccount(const Invocation &invocation, OrvaneKit &kit)
{
    if (invocation.isDemo) return fillDemoAccount(kit);
    if (isScriptCommand(invocation.command)) return {};
    if (kit.account().isSignedIn() || kit.account().workWithLocalAccount()) return {};
    if (invocation.isDryRun || invocation.command != u"add") return {};
    return kit.account().openLocalAccount(QLocale{});
}

} // namespace

ExitStatus runCommand(const Invocation &invocation, CommandStreams streams)
{
    const Result<std::optional<CXTimeZone>> zone = zoneOf(invocation);
    if (!zone) return failWith(zone.error().sentence, ExitStatus::WrongUsage, streams.err);
    const SystemClock systemClock{*zone};
    const Result<std::optional<Instant>> now = nowOf(invocation, systemClock.zone());
    if (!now) return failWith(now.error().sentence, ExitStatus::WrongUsage, streams.err);
    if (const Result<void> locale = applyLocale(invocation); !locale)
        return failWith(locale.error().sentence, ExitStatus::WrongUsage, streams.err);

    if (invocation.command == u"occurrences") return runOccurrences(invocation, systemClock.zone(), streams);

    FixedClock fixedClock{now->value_or(systemClock.now()), systemClock.zone()};
    const bool bringsTimes = invocation.readsStandardInput || *now;
    const CXClock &clock = bringsTimes ? static_cast<const CXClock &>(fixedClock) : systemClock;

    const CommandHome home{invocation};
    if (invocation.command == u"pomo") return runPomo(invocation, home.folders(), streams);
    if (invocation.command == u"restore") return runRestore(invocation, home.folders(), clock, streams);
    const OrvaneKit::Opening opening = OrvaneKit::open(home.folders(), clock);
    if (!opening.kit) return failWith(opening.sentence, ExitStatus::CouldNot, streams.err);
    if (const Result<void> prepared = prepareAccount(invocation, *opening.kit); !prepared)
        return failWith(prepared.error().sentence, ExitStatus::CouldNot, streams.err);
    return invocation.readsStandardInput ? runDryRunOfLines(fixedClock, *opening.kit, streams)
                                         : run(invocation, *opening.kit, streams);
}
