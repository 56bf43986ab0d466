#include "cli/AddCommand.h"

#include "capture/NewTaskService.h"
#include "cli/CommandText.h"
#include "cli/FixedClock.h"
#include "cli/NamedList.h"
#include "cli/TaskJson.h"
#include "cli/TaskLine.h"
#include "corvexkit/time/TimeText.h"
#include "model/OrvaneKit.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <string>

using namespace Qt::StringLiterals;

namespace {

QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument{object}.toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject savedTask(const KWTaskModel &task, OrvaneKit &kit)
{
    QJsonObject object = taskJson(task, kit);
    object.insert(u"end"_s, dateJson(task.endDate, task.isAllDay, kit.clock().zone()));
    object.insert(u"repeatRule"_s, task.repeatRule);
    object.insert(u"reminders"_s, QJsonArray::fromStringList(task.reminders));
    return object;
}

// Answers an error object for a line that cannot be read; the lines after it go on.
QJsonObject dryRunOfLine(QByteArrayView bytes, FixedClock &clock, NewTaskService &service)
{
    if (!bytes.isValidUtf8()) return {{u"error"_s, commandText("The line is not valid UTF-8.")}};
    const QString line = QString::fromUtf8(bytes.endsWith('\r') ? bytes.chopped(1) : bytes);
    const qsizetype tab = line.indexOf(u'\t');
    const auto now = TimeText::toLocalTime(QStringView{line}.left(tab));
    if (tab < 0 || !now)
        return {
            {u"error"_s,
             commandText("The line does not begin with a local time and a tab: “%1”").arg(line.left(60))}};
    clock.setNow(clock.zone().toInstant(*now));
    return service.dryRun(line.mid(tab + 1));
}

QStringList notesOn(const KWTaskModel &task, bool isInNewList)
{
    QStringList notes;
    if (!task.repeatRule.isEmpty()) notes.append(commandText("repeats"));
    if (isInNewList) notes.append(commandText("new list"));
    return notes;
}

} // namespace

ExitStatus runDryRunOfLines(FixedClock &clock, OrvaneKit &kit, CommandStreams streams)
{
    NewTaskService service{kit};
    std::string bytes;
    while (streams.out.status() == QTextStream::Ok && std::getline(streams.in, bytes)) {
        streams.out << lineOf(dryRunOfLine(bytes, clock, service));
        streams.out.flush(); // whoever asks line by line waits for the answer
    }
    return ExitStatus::Done;
}

ExitStatus runAdd(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const QString title = invocation.arguments.join(u' ');
    const Result<NewTaskContext> context = newTaskContextOfListNamed(invocation.list, kit);
    if (!context) return failWith(context.error().sentence, ExitStatus::CouldNot, streams.err);
    NewTaskService service{kit};
    if (invocation.isDryRun) {
        streams.out << QJsonDocument{service.dryRun(title, *context)}.toJson();
        return ExitStatus::Done;
    }
    const bool makesList = service.compose(title, *context).newListName.has_value();
    const Result<KWTaskModel> added = service.add(title, *context);
    if (!added) return failWith(added.error().sentence, ExitStatus::CouldNot, streams.err);
    if (invocation.answersJson)
        streams.out << QJsonDocument{savedTask(*added, kit)}.toJson();
    else
        streams.out << addedTaskLine(*added, listNameOf(added->projectID, kit), notesOn(*added, makesList),
                                     kit.clock().zone())
                    << '\n';
    return ExitStatus::Done;
}
