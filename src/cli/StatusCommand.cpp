#include "cli/StatusCommand.h"

#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskTicker.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr qsizetype shortestEnding = 4;

QString statusText(const char *text) { return QCoreApplication::translate("CommandLine", text); }

Result<QString> taskWithEnding(const QString &ending, OrvaneKit &kit)
{
    if (ending.size() < shortestEnding)
        return Error{statusText("“%1” is too short for an id: give what `orvane list` shows.").arg(ending)};
    const QList<KWTaskModel> found = kit.context().models<KWTask>(
        {.where = "userID = ? AND isDeleted = 0 AND substr(sid, -length(?2)) = ?2",
         .values = {kit.account().currentUserID(), ending},
         .limit = 2});
    if (found.isEmpty()) return Error{statusText("There is no task “%1”.").arg(ending)};
    if (found.size() > 1)
        return Error{statusText("More than one task ends in “%1”: give more of the id.").arg(ending)};
    return found.first().sid;
}

} // namespace

ExitStatus runStatus(KWTaskStatus status, const Invocation &invocation, OrvaneKit &kit,
                     CommandStreams streams)
{
    if (invocation.arguments.isEmpty())
        return failWith(statusText("Which task? Give its id, as `orvane list` shows it."),
                        ExitStatus::WrongUsage, streams.err);
    ExitStatus worst = ExitStatus::Done;
    for (const QString &each : invocation.arguments) {
        const Result<QString> taskID = taskWithEnding(each, kit);
        const auto done = taskID ? KWTaskTicker{kit.manager()}.updateStatus(status, *taskID)
                                 : Result<KWTaskTicker::Ticked>{taskID.error()};
        if (!done) {
            worst = failWith(done.error().sentence, ExitStatus::CouldNot, streams.err);
            continue;
        }
        streams.out << terminalText(kit.context().find<KWTask>(*taskID)->model().title) << '\n';
    }
    return worst;
}
