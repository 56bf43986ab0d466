#include "cli/ScriptCommand.h"

#include "cli/CommandText.h"
#include "cli/ListSections.h"
#include "corvexkit/log/RotatingFileSink.h"
#include "integration/scripting/KWScriptCommand.h"
#include "model/OrvaneKit.h"
#include "platform/ScriptingClient.h"

#include <limits>

using namespace Qt::StringLiterals;

ExitStatus runScriptCommand(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    ListSections lists;
    FocusStartPort noFocus;
    UsageEventsPort noUsage;
    const ScriptSurroundings with{kit, lists, noFocus, noUsage};
    ScriptCommandDescription description{.arguments = {{u"from"_s, invocation.from}}};
    if (!invocation.arguments.isEmpty()) description.directParameter = invocation.arguments.join(u' ');
    // Who asks is noted where the client notes it; the files change at its hand alone.
    const RotatingFileSink::Limits endless{.bytes = std::numeric_limits<qint64>::max()};
    const auto before = CXLog::setSink(std::make_shared<RotatingFileSink>(kit.folders().log(), endless));
    const auto answer = performScriptCommand(invocation.command, with, std::move(description));
    CXLog::setSink(before);
    if (answer) streams.out << *answer << '\n';
    return ExitStatus::Done;
}

ExitStatus runPomo(const Invocation &invocation, const DataFolders &folders, CommandStreams streams)
{
    bool isNumber = false;
    const int seconds = invocation.arguments.value(0).toInt(&isNumber);
    if (!isNumber || invocation.arguments.size() != 1)
        return failWith(
            commandText("How long is the Pomo? Give whole seconds, or 0 for the length of the preferences."),
            ExitStatus::WrongUsage, streams.err);
    const Result<QString> answer = callScripting(u"Pomo"_s, {seconds}, invocation.from, folders);
    return answer ? ExitStatus::Done : failWith(answer.error().sentence, ExitStatus::CouldNot, streams.err);
}
