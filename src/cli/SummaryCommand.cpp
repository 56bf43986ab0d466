#include "cli/SummaryCommand.h"

#include "cli/CommandText.h"
#include "integration/summary/SummaryDocument.h"
#include "integration/summary/SummaryMarkdown.h"
#include "integration/summary/SummaryReader.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWUserSettings.h"
#include "model/text/DayText.h"

#include <QDir>
#include <QJsonArray>
#include <QLocale>
#include <QSaveFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

const QStringList formats{u"md"_s, u"html"_s, u"pdf"_s};

QString formatOf(const Invocation &invocation)
{
    if (!invocation.format.isEmpty()) return invocation.format;
    const QString suffix = QFileInfo{invocation.out}.suffix().toLower();
    return formats.contains(suffix) ? suffix : formats.first();
}

Result<void> checkDay(const QString &text)
{
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (text.isEmpty() || (date.isValid() && date.year() <= 9999)) return {};
    return Error{commandText("“%1” is no day; write it as 2030-05-01.").arg(text)};
}

// Without any day, the week of today; with one of them, up to today or from today on.
Result<SummaryChoice> choiceOf(const Invocation &invocation, OrvaneKit &kit)
{
    for (const QString &day : {invocation.from, invocation.to})
        if (const Result<void> checked = checkDay(day); !checked) return checked.error();
    if (!QStringList{u"day"_s, u"list"_s, u"status"_s, QString{}}.contains(invocation.group))
        return Error{
            commandText("“%1” is no way to group: there are day, list and status.").arg(invocation.group)};
    QJsonObject json{{u"group"_s, invocation.group}};
    if (!invocation.from.isEmpty() || !invocation.to.isEmpty()) {
        json.insert(u"range"_s, u"days"_s);
        json.insert(u"from"_s, invocation.from);
        json.insert(u"to"_s, invocation.to);
    }
    const QString user = kit.account().currentUserID();
    if (!invocation.list.isEmpty()) {
        const KWProject *list = KWProject::findProjectNamed(invocation.list, user, kit.context());
        if (!list) return Error{commandText("There is no list “%1”.").arg(invocation.list)};
        json.insert(u"lists"_s, QJsonArray{list->sid()});
    }
    const auto choice = SummaryChoice::fromJson(json, kit.clock().today(),
                                                KWUserSettings::firstWeekdayOfUser(user, kit.context()));
    if (choice.isShortened) return Error{commandText("A summary is of ten years at most.")};
    return choice;
}

Result<void> writeText(const QString &text, const QString &file)
{
    QSaveFile output{file};
    const QByteArray bytes = text.toUtf8();
    if (output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size() && output.commit())
        return {};
    return Error{commandText("“%1” could not be written: %2.").arg(file, output.errorString())};
}

} // namespace

bool needsGuiApplication(const Invocation &invocation)
{
    return invocation.command == u"summary" && formatOf(invocation) != formats.first();
}

ExitStatus runSummary(const Invocation &invocation, OrvaneKit &kit, CommandStreams streams)
{
    const QString format = formatOf(invocation);
    if (!formats.contains(format))
        return failWith(commandText("“%1” is no format: there are md, html and pdf.").arg(format),
                        ExitStatus::WrongUsage, streams.err);
    if (format == u"pdf" && invocation.out.isEmpty())
        return failWith(commandText("A PDF goes into a file: name it with --out FILE."),
                        ExitStatus::WrongUsage, streams.err);
    const Result<SummaryChoice> choice = choiceOf(invocation, kit);
    if (!choice) return failWith(choice.error().sentence, ExitStatus::WrongUsage, streams.err);
    if (!kit.account().isSignedIn())
        return failWith(commandText("Nobody is signed in."), ExitStatus::CouldNot, streams.err);
    SummaryContent content;
    const Result<void> done =
        KWCoreDataService{kit.manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            auto read = readSummary(*choice, kit.account().currentUserID(), context);
            if (!read) return read.error();
            content = std::move(*read);
            return {};
        });
    if (!done) return failWith(done.error().sentence, ExitStatus::CouldNot, streams.err);

    const QLocale locale;
    const QString title = summaryTitle(content, locale);
    const QString markdown = summaryMarkdown(content, kit.clock().zone(), locale);
    Result<void> written;
    if (format == u"pdf") {
        written = SummaryDocument::writePdf(title, markdown, invocation.out);
    } else {
        const QString text = format == u"html" ? SummaryDocument::htmlPage(title, markdown) : markdown;
        if (invocation.out.isEmpty())
            streams.out << text;
        else
            written = writeText(text, invocation.out);
    }
    return written ? ExitStatus::Done : failWith(written.error().sentence, ExitStatus::CouldNot, streams.err);
}
