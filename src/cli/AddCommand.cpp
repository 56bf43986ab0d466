#include "cli/AddCommand.h"

#include "capture/NewTaskService.h"
#include "cli/FixedClock.h"
#include "cli/TaskLine.h"
#include "corvexkit/time/TimeText.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

QString addText(const char *text) { return QCoreApplication::translate("CommandLine", text); }

QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument{object}.toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject savedTask(const KWTaskModel &task, OrvaneKit &kit)
{
    const CXTimeZone zone = kit.clock().zone();
    const KWProject *project = kit.context().find<KWProject>(task.projectID);
    const auto dateOrNull = [&](const std::optional<Instant> &date) {
        return date ? QJsonValue{localDateText(date, task.isAllDay, zone)} : QJsonValue{};
    };
    return {{u"id"_s, task.sid},
            {u"title"_s, task.title},
            {u"list"_s, project ? project->model().name : QString{}},
            {u"tags"_s, QJsonArray::fromStringList(task.tags)},
            {u"priority"_s, int(task.priority)},
            {u"start"_s, dateOrNull(task.startDate)},
            {u"end"_s, dateOrNull(task.endDate)},
            {u"isAllDay"_s, task.isAllDay},
            {u"repeatRule"_s, task.repeatRule},
            {u"reminders"_s, QJsonArray::fromStringList(task.reminders)}};
}

Result<NewTaskContext> contextOf(const Invocation &invocation, OrvaneKit &kit)
{
    NewTaskContext context;
    if (invocation.list.isEmpty()) return context;
    const KWProject *project =
        KWProject::findProjectNamed(invocation.list, kit.account().currentUserID(), kit.context());
    if (!project) return Error{addText("There is no list “%1”.").arg(invocation.list)};
    context.presetList = project->sid();
    return context;
}

// Answers an error object for a line that cannot be read; the lines after it go on.
QJsonObject dryRunOfLine(const QString &line, FixedClock &clock, NewTaskService &service)
{
    const qsizetype tab = line.indexOf(u'\t');
    const auto now = TimeText::toLocalTime(QStringView{line}.left(tab));
    if (tab < 0 || !now)
        return {{u"error"_s,
                 addText("The line does not begin with a local time and a tab: “%1”").arg(line.left(60))}};
    clock.setNow(clock.zone().toInstant(*now));
    return service.dryRun(line.mid(tab + 1));
}

} // namespace

ExitStatus runDryRunOfLines(FixedClock &clock, OrvaneKit &kit, CommandStreams streams)
{
    NewTaskService service{kit};
    QString line;
    while (streams.out.status() == QTextStream::Ok && streams.in.readLineInto(&line)) {
        streams.out << lineOf(dryRunOfLine(line, clock, service));
        streams.out.flush(); // whoever asks line by line waits for the answer
    }
    return ExitStatus::Done;
}

ExitStatus runAdd(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const QString title = invocation.arguments.join(u' ');
    const Result<NewTaskContext> context = contextOf(invocation, kit);
    if (!context) return failWith(context.error().sentence, ExitStatus::CouldNot, streams.err);
    NewTaskService service{kit};
    if (invocation.isDryRun) {
        streams.out << QJsonDocument{service.dryRun(title, *context)}.toJson();
        return ExitStatus::Done;
    }
    const Result<KWTaskModel> added = service.add(title, *context);
    if (!added) return failWith(added.error().sentence, ExitStatus::CouldNot, streams.err);
    if (invocation.answersJson)
        streams.out << QJsonDocument{savedTask(*added, kit)}.toJson();
    else
        streams.out << added->title << '\n';
    return ExitStatus::Done;
}
