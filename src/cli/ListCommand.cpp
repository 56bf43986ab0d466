#include "cli/ListCommand.h"

#include "cli/NamedList.h"
#include "cli/TaskLine.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/store/KWListDataFetcher.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QJsonObject jsonOf(const KWTaskListItemModel &task, OrvaneKit &kit)
{
    const CXTimeZone zone = kit.clock().zone();
    const KWProject *project = kit.context().find<KWProject>(task.projectID);
    const QString start = localDateText(task.startDate, task.isAllDay, zone);
    return {{u"id"_s, task.sid},
            {u"title"_s, task.title},
            {u"list"_s, project ? project->model().name : QString{}},
            {u"tags"_s, QJsonArray::fromStringList(task.tags)},
            {u"priority"_s, int(task.priority)},
            {u"start"_s, start.isEmpty() ? QJsonValue{} : QJsonValue{start}},
            {u"isAllDay"_s, task.isAllDay}};
}

} // namespace

ExitStatus runList(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const QString name = invocation.arguments.join(u' ');
    const Result<KWListIdentifier> list =
        name.isEmpty() ? KWListIdentifier::smartProject(KWSmartProject::all().identifier())
                       : listNamed(name, kit);
    if (!list) return failWith(list.error().sentence, ExitStatus::CouldNot, streams.err);
    const Result<QList<KWTaskListItemModel>> tasks = KWListDataFetcher{kit.clock()}.reloadDataModel(
        {.userID = kit.account().currentUserID(), .selection = *list}, kit.context().connection());
    if (!tasks) return failWith(tasks.error().sentence, ExitStatus::CouldNot, streams.err);

    if (invocation.answersJson) {
        QJsonArray array;
        for (const KWTaskListItemModel &each : *tasks)
            array.append(jsonOf(each, kit));
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
