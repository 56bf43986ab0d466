#include "cli/StatusCommand.h"

#include "cli/CommandText.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskTicker.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shortestEnding = 4;

// Where the ids stand of the tasks that can be given that status.
QString listCommandFor(KWTaskStatus status)
{
    return status == KWTaskStatusOpen ? u"`orvane list completed`"_s : u"`orvane list`"_s;
}

Result<KWTaskModel> taskWithEnding(const QString &ending, KWTaskStatus status, OrvaneKit &kit)
{
    if (ending.size() < shortestEnding)
        return Error{commandText("“%1” is too short for an id: give what %2 shows.")
                         .arg(ending, listCommandFor(status))};
    const QList<KWTaskModel> found = kit.context().models<KWTask>(
        {.where = "userID = ? AND isDeleted = 0 AND substr(sid, -length(?2)) = ?2",
         .values = {kit.account().currentUserID(), ending},
         .limit = 2});
    if (found.isEmpty()) return Error{commandText("There is no task “%1”.").arg(ending)};
    if (found.size() > 1)
        return Error{commandText("More than one task ends in “%1”: give more of the id.").arg(ending)};
    return found.first();
}

// What is said of the task once it has the status.
Result<QString> giveStatus(KWTaskStatus status, const KWTaskModel &task, OrvaneKit &kit)
{
    if (task.status == status)
        return commandText(status == KWTaskStatusOpen ? "“%1” is open already." : "“%1” is done already.")
            .arg(task.title);
    const auto ticked = KWTaskTicker{kit.manager()}.updateStatus(status, {task.sid});
    if (!ticked) return ticked.error();
    return task.title;
}

} // namespace

ExitStatus runStatus(KWTaskStatus status, const Invocation &invocation, OrvaneKit &kit,
                     CommandStreams streams)
{
    if (invocation.arguments.isEmpty())
        return failWith(commandText("Which task? Give its id, as %1 shows it.").arg(listCommandFor(status)),
                        ExitStatus::WrongUsage, streams.err);
    ExitStatus worst = ExitStatus::Done;
    for (const QString &each : invocation.arguments) {
        const Result<KWTaskModel> task = taskWithEnding(each, status, kit);
        const Result<QString> said = task ? giveStatus(status, *task, kit) : task.error();
        if (said)
            streams.out << terminalText(*said) << '\n';
        else
            worst = failWith(said.error().sentence, ExitStatus::CouldNot, streams.err);
    }
    return worst;
}
