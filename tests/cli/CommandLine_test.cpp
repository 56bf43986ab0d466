#include "cli/Commands.h"
#include "corvexkit/time/SystemClock.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"
#include "model/store/OutsideChange.h"

#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

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

    Answer orvane(const QStringList &words, const QString &input = {})
    {
        const Result<Invocation> invocation =
            Invocation::parse(QStringList{u"--home"_s, m_home->path()} + words);
        if (!invocation) return {int(ExitStatus::WrongUsage), {}, invocation.error().sentence};
        Answer answer{};
        QString in = input;
        QTextStream inStream{&in};
        QTextStream outStream{&answer.out};
        QTextStream errStream{&answer.err};
        answer.status = int(runCommand(*invocation, {inStream, outStream, errStream}));
        outStream.flush();
        errStream.flush();
        return answer;
    }

    QString idOf(const QString &title)
    {
        const auto tasks = QJsonDocument::fromJson(orvane({u"list"_s, u"--json"_s}).out.toUtf8()).array();
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

    void theFirstTaskOfAFreshHomeIsFoundInItsList()
    {
        const Answer added =
            orvane({u"add"_s, u"Call the venue tomorrow 5pm !high #errand ~Client launch"_s});
        QCOMPARE(added.err, QString{});
        QCOMPARE(added.status, 0);
        for (const QString &list :
             {u"Client launch"_s, u"client LAUNCH"_s, u"Tomorrow"_s, u"#errand"_s, u"All"_s}) {
            const Answer listed = orvane({u"list"_s, list});
            QCOMPARE(listed.status, 0);
            QVERIFY2(listed.out.contains(u"Call the venue #errand !high"_s), qUtf8Printable(list));
            QCOMPARE(listed.out.count(u'\n'), 1);
        }
        QCOMPARE(orvane({u"list"_s, u"Inbox"_s}).out, QString{});
    }

    void whatWasSavedIsAnsweredAsJson()
    {
        const QJsonObject task =
            objectOf(orvane({u"add"_s, u"--json"_s, u"Pay rent 2030-04-01 #home"_s}).out);
        QCOMPARE(task[u"title"_s].toString(), u"Pay rent"_s);
        QCOMPARE(task[u"start"_s].toString(), u"2030-04-01"_s);
        QCOMPARE(task[u"isAllDay"_s].toBool(), true);
        QCOMPARE(task[u"end"_s], QJsonValue{});
        QCOMPARE(task[u"tags"_s].toArray(), QJsonArray{u"home"_s});
        QCOMPARE(task[u"list"_s].toString(), u"Inbox"_s);
    }

    void aDryRunChangesNothing()
    {
        const Answer dry = orvane({u"add"_s, u"--dry-run"_s, u"--now"_s, u"2026-11-21T09:00:00"_s,
                                   u"Call the venue tomorrow 5pm !high #errand ~Client launch"_s});
        const QJsonObject object = objectOf(dry.out);
        QCOMPARE(object[u"title"_s].toString(), u"Call the venue"_s);
        QCOMPARE(object[u"list"_s].toString(), u"Client launch"_s);
        QCOMPARE(object[u"date"_s][u"start"_s].toString(), u"2026-11-22T17:00:00"_s);
        QCOMPARE(object[u"recognized"_s].toArray().size(), 4);
        QVERIFY2(!QFile::exists(DataFolders::locate(m_home->path()).store()), "a dry run made a store");
    }

    void titlesAreReadAsOfTheTimeGiven_data()
    {
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("tomorrow");
        QTest::newRow("local") << u"2026-11-21T23:30"_s << u"2026-11-22"_s;
        QTest::newRow("with an offset") << u"2026-11-21T23:30:00+01:00"_s << u"2026-11-23"_s;
        QTest::newRow("in UTC") << u"2026-11-21T14:59:59Z"_s << u"2026-11-22"_s;
    }

    void titlesAreReadAsOfTheTimeGiven()
    {
        QFETCH(QString, now);
        QFETCH(QString, tomorrow);
        const Answer added = orvane(
            {u"add"_s, u"--json"_s, u"--zone"_s, u"Asia/Tokyo"_s, u"--now"_s, now, u"Pay rent tomorrow"_s});
        QCOMPARE(added.status, 0);
        QCOMPARE(objectOf(added.out)[u"start"_s].toString(), tomorrow);
    }

    void linesAreReadEachAtItsOwnTime()
    {
        const Answer answer =
            orvane({u"add"_s, u"--dry-run"_s, u"--stdin"_s, u"--zone"_s, u"America/New_York"_s},
                   u"2030-03-09T09:00:00\tRun tomorrow at 2:30am\n"
                   "no time at all\n"
                   "\n"
                   "2031-01-31T09:00:00\tWalk tomorrow\n"_s);
        QCOMPARE(answer.status, 0);
        const QStringList lines = answer.out.split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 4);
        // The clocks go forward that night: 2:30 does not happen.
        QCOMPARE(objectOf(lines.at(0))[u"date"_s][u"start"_s].toString(), u"2030-03-10T03:30:00"_s);
        QVERIFY(objectOf(lines.at(1)).contains(u"error"_s));
        QVERIFY(objectOf(lines.at(2)).contains(u"error"_s));
        QCOMPARE(objectOf(lines.at(3))[u"date"_s][u"start"_s].toString(), u"2031-02-01T00:00:00"_s);
    }

    void doneAndUndoTakeTheEndOfAnId()
    {
        orvane({u"add"_s, u"Pay rent"_s});
        orvane({u"add"_s, u"Wash up"_s});
        const QString id = idOf(u"Pay rent"_s);
        QCOMPARE(orvane({u"done"_s, id.right(6)}).out, u"Pay rent\n"_s);
        QCOMPARE(idOf(u"Pay rent"_s), QString{});
        QVERIFY(orvane({u"list"_s, u"Completed"_s}).out.contains(u"Pay rent"_s));
        QCOMPARE(orvane({u"undo"_s, id}).status, 0);
        QCOMPARE(idOf(u"Pay rent"_s), id);
    }

    void doneGoesOnAfterAnIdThatIsNone()
    {
        orvane({u"add"_s, u"Pay rent"_s});
        const Answer answer = orvane({u"done"_s, u"zzzz"_s, idOf(u"Pay rent"_s)});
        QCOMPARE(answer.status, 1);
        QCOMPARE(answer.err, u"There is no task “zzzz”.\n"_s);
        QCOMPARE(answer.out, u"Pay rent\n"_s);
        QCOMPARE(orvane({u"done"_s, u"z"_s}).status, 1);
        QCOMPARE(orvane({u"done"_s}).status, 2);
    }

    void whatCannotBeDoneIsOneSentence_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<int>("status");
        QTest::newRow("no title") << QStringList{u"add"_s, u"   "_s} << 1;
        QTest::newRow("tokens only") << QStringList{u"add"_s, u"#errand !high tomorrow"_s} << 1;
        QTest::newRow("no such list") << QStringList{u"add"_s, u"--list"_s, u"Nowhere"_s, u"Pay"_s} << 1;
        QTest::newRow("no such list to show") << QStringList{u"list"_s, u"Nowhere"_s} << 1;
        QTest::newRow("no such tag") << QStringList{u"list"_s, u"#nothing"_s} << 1;
        QTest::newRow("no such zone") << QStringList{u"list"_s, u"--zone"_s, u"Mars/Base"_s} << 2;
        QTest::newRow("no such locale") << QStringList{u"list"_s, u"--locale"_s, u"qq_QQ"_s} << 2;
        QTest::newRow("no time") << QStringList{u"add"_s, u"--dry-run"_s, u"--now"_s, u"noon"_s, u"Pay"_s}
                                 << 2;
    }

    void whatCannotBeDoneIsOneSentence()
    {
        QFETCH(QStringList, words);
        QFETCH(int, status);
        const Answer answer = orvane(words);
        QCOMPARE(answer.status, status);
        QCOMPARE(answer.out, QString{});
        QCOMPARE(answer.err.count(u'\n'), 1);
        QCOMPARE(orvane({u"list"_s}).out, QString{});
    }

    void aLongTitleIsKeptWhole()
    {
        const QString title = u"long "_s.repeated(20'000).trimmed();
        QCOMPARE(orvane({u"add"_s, title}).status, 0);
        QVERIFY(!idOf(title).isEmpty());
    }

    void aSaveIsAnnouncedToAnOpenClientAndALookIsNot()
    {
        const DataFolders folders = DataFolders::locate(m_home->path());
        orvane({u"add"_s, u"Pay rent"_s});
        const QByteArray afterAdd = lastOutsideChange(folders);
        QVERIFY(!afterAdd.isEmpty());
        orvane({u"list"_s});
        QCOMPARE(lastOutsideChange(folders), afterAdd);
        orvane({u"done"_s, idOf(u"Pay rent"_s)});
        QVERIFY(lastOutsideChange(folders) != afterAdd);
    }

    void theDemoFillsAFreshHomeOnceAndNoOther()
    {
        orvane({u"list"_s, u"--demo"_s});
        const QString demo = orvane({u"list"_s}).out;
        QVERIFY(demo.count(u'\n') > 30);
        QCOMPARE(orvane({u"list"_s, u"--demo"_s}).out, demo);
        QVERIFY(orvane({u"list"_s, u"Groceries"_s}).out.contains(u"Oat milk"_s));
    }
};

ORVANE_TEST(CommandLine_test)
#include "CommandLine_test.moc"
