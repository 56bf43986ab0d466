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

#include <string>

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

std::optional<QString> textOf(std::string_view bytes)
{
    if (bytes.ends_with('\r')) bytes.remove_suffix(1);
    const QByteArrayView view{bytes.data(), qsizetype(bytes.size())};
    return view.isValidUtf8() ? std::optional{QString::fromUtf8(view)} : std::nullopt;
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
    ExitStatus status = ExitStatus::Done;
    std::string bytes;
    for (qint64 number = 1; streams.out.status() == QTextStream::Ok && std::getline(streams.in, bytes);
         ++number) {
        if (const std::optional<QString> line = textOf(bytes)) {
            streams.out << lineOf(dryRunOfLine(*line, clock, service));
        } else {
            const QString sentence = addText("Line %1 is not valid UTF-8.").arg(number);
            streams.out << lineOf({{u"error"_s, sentence}});
            if (status == ExitStatus::Done) status = failWith(sentence, ExitStatus::WrongUsage, streams.err);
        }
        streams.out.flush(); // whoever asks line by line waits for the answer
    }
    return status;
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
        streams.out << terminalText(added->title) << '\n';
    return ExitStatus::Done;
}
