#include "app/FolderLock.h"
#include "cli/Commands.h"
#include "cli/RunSettings.h"
#include "model/OrvaneKit.h"
#include "model/store/OutsideChange.h"

#include "support/CaseTable.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct Answer {
    int status;
    QString out;
    QString err;
};

QJsonObject objectOf(const QString &text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

} // namespace

/// The commands as a shell runs them, each on a store that it opens for itself.
class CommandLine_test : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_home;

    // `command` as a shell would take it.
    Answer orvane(const QString &command, const std::string &input = {})
    {
        const Result<Invocation> invocation =
            Invocation::parse(QStringList{u"--home"_s, m_home->path()} + QProcess::splitCommand(command));
        if (!invocation) return {int(ExitStatus::WrongUsage), {}, invocation.error().sentence};
        Answer answer{};
        std::istringstream in{input};
        QTextStream out{&answer.out};
        QTextStream err{&answer.err};
        answer.status = int(runCommand(*invocation, {in, out, err}));
        out.flush();
        err.flush();
        return answer;
    }

    QString idOf(const QString &title)
    {
        const auto tasks = QJsonDocument::fromJson(orvane(u"list --json"_s).out.toUtf8()).array();
        for (const QJsonValue &each : tasks)
            if (each[u"title"_s].toString() == title) return each[u"id"_s].toString();
        return {};
    }

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        QLocale::setDefault(QLocale::c());
    }

    void takesWordsAndOptions_data() { addCaseRows("cli/invocations.txt", 5); }
    void takesWordsAndOptions()
    {
        QFETCH(QStringList, cells);
        const Result<Invocation> invocation = Invocation::parse(cells.at(0).split(u' ', Qt::SkipEmptyParts));
        if (!cells.at(4).isEmpty()) {
            QVERIFY2(!invocation, "an error was expected");
            const QString expected = cells.at(4).mid(1).trimmed();
            QVERIFY2(invocation.error().sentence.contains(expected),
                     qUtf8Printable(invocation.error().sentence));
            return;
        }
        QVERIFY2(bool(invocation), invocation ? "" : qUtf8Printable(invocation.error().sentence));
        const QStringList actions{u"Window"_s, u"Picture"_s, u"Version"_s, u"Help"_s, u"Command"_s};
        QCOMPARE(actions.at(int(invocation->action)), cells.at(1));
        QCOMPARE(invocation->command, cells.at(2));
        QCOMPARE(invocation->arguments.join(u','), cells.at(3));
    }

    void windowsAreMirroredAsTheLanguageIsWritten()
    {
        const std::pair<QString, Qt::LayoutDirection> cases[] = {
            {u"--locale ar_EG"_s, Qt::RightToLeft},
            {u"--locale he_IL"_s, Qt::RightToLeft},
            {u"--locale de_DE"_s, Qt::LeftToRight},
            {u"--locale de_DE --picture a.png --right-to-left"_s, Qt::RightToLeft},
        };
        for (const auto &[words, direction] : cases) {
            const Result<Invocation> invocation = Invocation::parse(words.split(u' '));
            QVERIFY2(invocation && applyLocale(*invocation), qPrintable(words));
            QCOMPARE(layoutDirectionOf(*invocation), direction);
        }
    }

    void everyCommandHasAUsage()
    {
        for (const QString &command :
             {u"add"_s, u"list"_s, u"occurrences"_s, u"done"_s, u"undo"_s, u"backup"_s, u"restore"_s,
              u"export"_s, u"import"_s, u"today"_s, u"next7days"_s, u"search"_s, u"projects"_s, u"pomo"_s})
            QVERIFY2(usageOf(command).contains(u"orvane "_s + command), qUtf8Printable(command));
        QVERIFY(usageOf({}).contains(u"--picture"_s));
    }

    void theFirstTaskOfAFreshHomeIsFoundInItsList()
    {
        const Answer added = orvane(u"add Call the venue tomorrow 5pm !high #errand ~Client launch"_s);
        QCOMPARE(added.err, QString{});
        QCOMPARE(added.status, 0);
        for (const QString &list :
             {u"Client launch"_s, u"client LAUNCH"_s, u"Tomorrow"_s, u"#errand"_s, u"All"_s}) {
            const Answer listed = orvane(u"list "_s + list);
            QCOMPARE(listed.status, 0);
            QVERIFY2(listed.out.contains(u"Call the venue #errand !high"_s), qUtf8Printable(list));
            QCOMPARE(listed.out.count(u'\n'), 1);
        }
        QCOMPARE(orvane(u"list Inbox"_s).out, QString{});
    }

    void addAnswersWhatItUnderstood_data() { addCaseRows("cli/added.txt", 2); }
    void addAnswersWhatItUnderstood()
    {
        QFETCH(QStringList, cells);
        const Answer added = orvane(u"add --now 2026-11-21 "_s + cells.at(0));
        QCOMPARE(added.err, QString{});
        QVERIFY2(orvane(u"list"_s).out.startsWith(added.out.left(6)), "the id is another one");
        QCOMPARE(added.out.mid(6).simplified(), cells.at(1));
    }

    void whatWasSavedIsAnsweredAsJson()
    {
        const QJsonObject task = objectOf(orvane(u"add --json Pay rent 2030-04-01 #home"_s).out);
        QCOMPARE(task[u"title"_s].toString(), u"Pay rent"_s);
        QCOMPARE(task[u"start"_s].toString(), u"2030-04-01"_s);
        QCOMPARE(task[u"isAllDay"_s].toBool(), true);
        QCOMPARE(task[u"end"_s], QJsonValue{});
        QCOMPARE(task[u"tags"_s].toArray(), QJsonArray{u"home"_s});
        QCOMPARE(task[u"list"_s].toString(), u"Inbox"_s);
    }

    void aDryRunChangesNothing()
    {
        const QByteArray recognition = R"({
            "title": "Call the venue",
            "tags": ["Errand"], "priority": 5, "list": "Client launch", "assignee": null,
            "date": {"start": "2026-11-22T17:00:00", "end": null, "isAllDay": false,
                "repeatRule": "", "repeatFrom": "", "reminders": ["TRIGGER:PT0S"]},
            "recognized": [
                {"type": "date", "location": 15, "length": 12, "text": "tomorrow 5pm"},
                {"type": "priority", "location": 28, "length": 5, "text": "!high"},
                {"type": "tag", "location": 34, "length": 7, "text": "#Errand"},
                {"type": "list", "location": 42, "length": 14, "text": "~Client launch"}]})";
        const QString command = u"add --dry-run --now 2026-11-21T09:00:00 "
                                "Call the venue tomorrow 5pm !high #Errand ~Client launch"_s;
        QCOMPARE(objectOf(orvane(command).out), QJsonDocument::fromJson(recognition).object());
        QVERIFY2(!QFile::exists(DataFolders::locate(m_home->path()).store()), "a dry run made a store");
        orvane(u"add Pay rent"_s);
        orvane(command);
        QCOMPARE(orvane(u"list"_s).out.count(u'\n'), 1);
    }

    void titlesAreReadAsOfTheTimeGiven()
    {
        for (const auto &[now, tomorrow] : {std::pair{u"2026-11-21T23:30"_s, u"2026-11-22"_s},
                                            {u"2026-11-21T23:30:00+01:00"_s, u"2026-11-23"_s},
                                            {u"2026-11-21T14:59:59Z"_s, u"2026-11-22"_s}}) {
            const Answer added = orvane(u"add --json --zone Asia/Tokyo Pay tomorrow --now "_s + now);
            QCOMPARE(objectOf(added.out)[u"start"_s].toString(), tomorrow);
        }
    }

    void linesAreReadEachAtItsOwnTime()
    {
        const Answer answer = orvane(u"add --dry-run --stdin --zone America/New_York"_s,
                                     "2030-03-09T09:00:00\tRun tomorrow at 2:30am\n"
                                     "no time at all\n"
                                     "\n"
                                     "2030-03-09T09:00:00\tcaf\xe9\n"
                                     "2031-01-31T09:00:00\tWalk tomorrow\n"
                                     "2031-01-31T09:00:00\tPay rent\n");
        QCOMPARE(answer.status, 0);
        QList<QJsonObject> objects;
        for (const QString &line : answer.out.split(u'\n', Qt::SkipEmptyParts))
            objects << objectOf(line);
        QCOMPARE(objects.size(), 6);
        // The clocks go forward that night: 2:30 does not happen.
        QCOMPARE(objects[0][u"date"_s][u"start"_s].toString(), u"2030-03-10T03:30:00"_s);
        for (int i = 1; i <= 3; ++i)
            QVERIFY(objects[i].contains(u"error"_s));
        QCOMPARE(objects[4][u"date"_s][u"start"_s].toString(), u"2031-02-01T00:00:00"_s);
        QVERIFY(objects[5][u"date"_s].isNull() && objects[5][u"list"_s].isNull());
        const char *const words[] = {"add", "caf\xe9"};
        QVERIFY(!Invocation::parse(words));
    }

    void linesHoldNoControlCharacters()
    {
        QVERIFY(
            orvane(u"add \"Red\u001b[31m and\u202eleft\""_s).out.endsWith(u"  Red [31m and left ~Inbox\n"_s));
        QVERIFY(orvane(u"list"_s).out.contains(u"Red [31m and left\n"_s));
        QCOMPARE(orvane(u"list \u009bm"_s).err, u"There is no list “ m”.\n"_s);
        QCOMPARE(orvane(u"list Tags"_s).err, u"There is no list “Tags”.\n"_s); // no tasks stand in it
    }

    void answersOtherProgramsFromTheStore()
    {
        for (const QString &each : {u"today"_s, u"next7days"_s, u"search rent"_s, u"projects"_s})
            QCOMPARE(orvane(each).out, QString{}); // nobody is signed in
        QCOMPARE(orvane(u"summary"_s).err, u"Nobody is signed in.\n"_s);
        const QString id = objectOf(orvane(u"add --json Pay rent 2030-05-01"_s).out)[u"id"_s].toString();
        QCOMPARE(orvane(u"today --now 2030-04-30"_s).out, u"[]\n"_s);
        QVERIFY(orvane(u"next7days --now 2030-04-30"_s).out.contains(id));
        for (const QString &each : {u"today --now 2030-05-01"_s, u"search RENT --from raycast"_s}) {
            const Answer answer = orvane(each);
            QCOMPARE(answer.status, 0);
            QVERIFY2(answer.out.contains(id) && answer.out.endsWith(u"]\n"), qUtf8Printable(answer.out));
        }
        QVERIFY(orvane(u"projects"_s).out.contains(u"\"isInbox\":true"_s));
        const QByteArray log = bytesOf(DataFolders::locate(m_home->path()).log() + u"/orvane.log"_s);
        QVERIFY2(log.contains("apple script: search, from: raycast\n"), log.constData());
        QCOMPARE(log.count("apple script: "), 5);
    }

    void doneAndUndoTakeTheEndOfAnId()
    {
        orvane(u"add Pay rent"_s);
        orvane(u"add Wash up"_s);
        const QString id = idOf(u"Pay rent"_s);
        QCOMPARE(orvane(u"undo "_s + id).out, u"“Pay rent” is open already.\n"_s);
        const Answer done = orvane(u"done zzzz "_s + id.right(6)); // goes on after an id that is none
        QCOMPARE(done.status, 1);
        QCOMPARE(done.err, u"There is no task “zzzz”.\n"_s);
        QCOMPARE(done.out, u"Pay rent\n"_s);
        QCOMPARE(orvane(u"done "_s + id).out, u"“Pay rent” is done already.\n"_s);
        QCOMPARE(idOf(u"Pay rent"_s), QString{});
        QVERIFY(orvane(u"list Completed"_s).out.contains(u"Pay rent"_s));
        QCOMPARE(orvane(u"undo "_s + id).status, 0);
        QCOMPARE(idOf(u"Pay rent"_s), id);
    }

    void everythingGoesOutAndBack()
    {
        const QTemporaryDir elsewhere;
        const QString document = elsewhere.filePath(u"tasks.json"_s);
        orvane(u"list --demo"_s);
        QCOMPARE(orvane(u"export "_s + document).status, 0);
        QFile file{document};
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString everything = QString::fromUtf8(file.readAll());
        QCOMPARE(orvane(u"export"_s).out, everything);
        QCOMPARE(orvane(u"export "_s + document).status, 0); // over the earlier one

        m_home = std::make_unique<QTemporaryDir>();
        QCOMPARE(orvane(u"export"_s).out.count(u"{\""), 1);
        QCOMPARE(orvane(u"import "_s + document).status, 0);
        QVERIFY(!lastOutsideChange(DataFolders::locate(m_home->path())).isEmpty());
        QCOMPARE(orvane(u"export"_s).out, everything);
    }

    void aBackupIsRestoredWhileNobodyHasTheFolder()
    {
        orvane(u"add Pay rent"_s);
        const QString daily = orvane(u"backup"_s).out.trimmed();
        QVERIFY(QFile::exists(daily));
        QCOMPARE(orvane(u"backup "_s + m_home->filePath(u"mine.sqlite"_s)).status, 0);
        const QString before = orvane(u"list"_s).out;
        orvane(u"add Wash up"_s);
        {
            FolderLock window{DataFolders::locate(m_home->path()).lock()};
            QCOMPARE(window.tryLock(), FolderLock::Outcome::Taken);
            QCOMPARE(orvane(u"restore "_s + daily).err, u"Orvane is open on this folder; quit it first.\n"_s);
        }
        for (const QString &file : {daily, m_home->filePath(u"mine.sqlite"_s)}) {
            const Answer restored = orvane(u"restore "_s + file);
            QVERIFY2(restored.out.startsWith(u"The store that was there is kept as"),
                     qUtf8Printable(restored.err));
            QCOMPARE(orvane(u"list"_s).out, before);
        }
    }

    void summariesAreMarkdownHtmlOrPdf()
    {
        orvane(u"add Water the plants today"_s);
        const Answer markdown = orvane(u"summary --group status"_s);
        QVERIFY2(markdown.out.contains(u"\n## Open\n\n- [ ] Water the plants — Inbox"),
                 qPrintable(markdown.out));
        QVERIFY(!orvane(u"summary --to 2001-01-01 --from 2001-01-02"_s).out.contains(u"Water"));
        QVERIFY(orvane(u"summary --format html"_s).out.startsWith(u"<!DOCTYPE html>"));
        for (const QString &days : {u"--from 2001-01-01"_s, u"--to 2001-01-01"_s, u"--to 2050-01-01"_s,
                                    u"--from 2001-01-01 --to 2011-01-09"_s})
            QCOMPARE(orvane(u"summary "_s + days).err, u"A summary is of ten years at most.\n"_s);
        QCOMPARE(orvane(u"summary --from 2001-01-02 --to 2011-01-09"_s).status, 0);
        for (const char *name : {"week.md", "week.html", "week.pdf"}) {
            const QString file = m_home->filePath(QString::fromLatin1(name));
            const Answer written = orvane(u"summary --out "_s + file);
            QCOMPARE(written.status, 0);
            QCOMPARE(written.out, QString{});
            QVERIFY(bytesOf(file).startsWith(file.endsWith(u".pdf")  ? "%PDF-"
                                             : file.endsWith(u".md") ? "# "
                                                                     : "<!"));
        }
    }

    void whatCannotBeDoneIsOneSentence_data() { addCaseRows("cli/refusals.txt", 2); }
    void whatCannotBeDoneIsOneSentence()
    {
        QFETCH(QStringList, cells);
        const Answer answer = orvane(cells.at(0));
        QCOMPARE(QString::number(answer.status), cells.at(1));
        QCOMPARE(answer.out, QString{});
        QVERIFY2(answer.err.trimmed().endsWith(u'.') && answer.err.count(u'\n') <= 1,
                 qUtf8Printable(answer.err));
        QCOMPARE(orvane(u"list"_s).out, QString{});
    }

    void aSaveIsAnnouncedToAnOpenClientAndALookIsNot()
    {
        const DataFolders folders = DataFolders::locate(m_home->path());
        orvane(u"add Pay rent"_s);
        const QByteArray afterAdd = lastOutsideChange(folders);
        QVERIFY(!afterAdd.isEmpty());
        orvane(u"list"_s);
        QCOMPARE(lastOutsideChange(folders), afterAdd);
        orvane(u"done "_s + idOf(u"Pay rent"_s));
        QVERIFY(lastOutsideChange(folders) != afterAdd);
    }

    void theDemoFillsAFreshHomeOnceAndNoOther()
    {
        orvane(u"list --demo"_s);
        const QString demo = orvane(u"list"_s).out;
        QVERIFY(demo.count(u'\n') > 30);
        QCOMPARE(orvane(u"list --demo"_s).out, demo);
        QVERIFY(orvane(u"list Groceries"_s).out.contains(u"Oat milk"_s));

        m_home = std::make_unique<QTemporaryDir>();
        orvane(u"add Pay rent"_s);
        const Answer refused = orvane(u"list --demo"_s);
        QCOMPARE(refused.status, 1);
        QVERIFY2(refused.err.contains(u"holds tasks already"_s), qUtf8Printable(refused.err));
        QCOMPARE(orvane(u"list"_s).out.count(u'\n'), 1);
    }
};

ORVANE_TEST(CommandLine_test)
#include "CommandLine_test.moc"
