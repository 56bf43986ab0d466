#include "cli/Commands.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <sstream>

using namespace Qt::StringLiterals;

/// `orvane occurrences` as a shell runs it, in UTC.
class OccurrencesCommand_test : public QObject {
    Q_OBJECT

    const QTemporaryDir m_home;
    QString m_err;

    QString occurrences(const QString &options, const std::string &input = {})
    {
        const QStringList words{u"occurrences"_s, u"--home"_s, m_home.path(), u"--zone=UTC"_s};
        const Result<Invocation> invocation = Invocation::parse(words + QProcess::splitCommand(options));
        m_err.clear();
        if (!invocation) {
            m_err = invocation.error().sentence;
            return {};
        }
        QString answer;
        std::istringstream in{input};
        QTextStream out{&answer};
        QTextStream err{&m_err};
        const ExitStatus status = runCommand(*invocation, {in, out, err});
        err.flush();
        if ((status == ExitStatus::WrongUsage) == m_err.isEmpty()) qFatal("status and sentence disagree");
        return answer;
    }

private Q_SLOTS:
    void showsWhenARuleOccurs_data() { addCaseRows("cli/occurrences.txt", 2); }
    void showsWhenARuleOccurs()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(occurrences(cells[0]).simplified(), cells[1]);
        QCOMPARE(m_err, QString{});
        QVERIFY2(QDir{m_home.path()}.isEmpty(), "a store was made");
    }

    void saysInOneSentenceWhatIsWrong()
    {
        const QString usual = u"--start 2030-05-01 --rule FREQ=DAILY --from 2030-05-01 --to 2030-06-01 "_s;
        QCOMPARE(occurrences(usual + u"--rule FREQ=DAILY;BYHOUR=24"_s), QString{});
        QCOMPARE(m_err,
                 u"The recurrence rule cannot be read at character 19: BYHOUR takes 0 to 23, not “24”.\n"_s);
        for (const QString &wrong : {u"--start noon"_s, u"--from 5"_s, u"--to 2030-02-30"_s,
                                     u"--exdate never"_s, u"--limit -1"_s, u"--limit many"_s}) {
            QCOMPARE(occurrences(usual + wrong), QString{});
            QVERIFY2(m_err.trimmed().endsWith(u'.') && m_err.count(u'\n') == 1, qUtf8Printable(wrong));
        }
    }

    void answersLineByLine_data() { addCaseRows("cli/occurrence-lines.txt", 2); }
    void answersLineByLine()
    {
        QFETCH(QStringList, cells);
        const QStringList lines = occurrences(u"--stdin"_s, cells[0].toStdString() + "\n\n").split(u'\n');
        QCOMPARE(lines.size(), 3); // the second line is empty, and the answers end with a line end
        const auto errorOf = [](const QString &line) {
            return QJsonDocument::fromJson(line.toUtf8()).object()[u"error"_s].toString();
        };
        if (cells[1].startsWith(u'['))
            QCOMPARE(lines[0], cells[1]);
        else
            QVERIFY2(errorOf(lines[0]).contains(cells[1]), qUtf8Printable(lines[0]));
        QVERIFY(errorOf(lines[1]).endsWith(u'.'));
    }

    // More than are held at a time.
    void showsAsManyAsThereAre()
    {
        const QString answer = occurrences(u"--start 2030-05-01 --rule FREQ=SECONDLY;INTERVAL=2 "
                                           "--from 2030-05-01 --to 2030-05-04T00:00 --limit 120000"_s);
        const QStringList lines = answer.split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 120'000);
        for (qsizetype i = 1; i < lines.size(); ++i)
            QVERIFY(lines[i - 1] < lines[i]);
        QCOMPARE(lines.last(), u"2030-05-03T18:39:58"_s);
    }
};

ORVANE_TEST(OccurrencesCommand_test)
#include "OccurrencesCommand_test.moc"
