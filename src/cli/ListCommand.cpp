#include "cli/ListCommand.h"

#include "cli/NamedList.h"
#include "cli/TaskJson.h"
#include "cli/TaskLine.h"
#include "model/OrvaneKit.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

ExitStatus runList(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const Result<QList<KWTaskListItemModel>> tasks = tasksOfListNamed(invocation.arguments.join(u' '), kit);
    if (!tasks) return failWith(tasks.error().sentence, ExitStatus::CouldNot, streams.err);

    if (invocation.answersJson) {
        QJsonArray array;
        for (const KWTaskListItemModel &each : *tasks)
            array.append(taskJson(each, kit));
        streams.out << QJsonDocument{array}.toJson();
        return ExitStatus::Done;
    }
    QStringList ids;
    for (const KWTaskListItemModel &each : *tasks)
        ids.append(each.sid);
    const QStringList shown = shortIDs(ids);
    for (qsizetype i = 0; i < tasks->size(); ++i)
        streams.out << taskLine(tasks->at(i), shown.at(i), kit.clock().zone()) << '\n';
    return ExitStatus::Done;
}
