#include "cli/ListCommand.h"

#include "cli/TaskLine.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/store/FoldedName.h"
#include "model/store/KWListDataFetcher.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

// The user's own lists come first: one may be called "Today".
std::optional<KWListIdentifier> listNamed(const QString &name, OrvaneKit &kit)
{
    const QString userID = kit.account().currentUserID();
    if (name.startsWith(u'#')) {
        const KWTag *tag = KWTag::findTagNamed(name.mid(1), userID, kit.context());
        return tag ? std::optional{KWListIdentifier::tag(tag->model().name)} : std::nullopt;
    }
    if (const KWProject *project = KWProject::findProjectNamed(name, userID, kit.context()))
        return KWListIdentifier::project(project->sid());
    for (const KWSmartProject *each : KWSmartProject::configurable())
        if (foldedName(each->displayName()) == foldedName(name))
            return KWListIdentifier::smartProject(each->identifier());
    return std::nullopt;
}

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
    const auto list = name.isEmpty() ? KWListIdentifier::smartProject(KWSmartProject::all().identifier())
                                     : listNamed(name, kit);
    if (!list)
        return failWith(QCoreApplication::translate("CommandLine", "There is no list “%1”.").arg(name),
                        ExitStatus::CouldNot, streams.err);
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
