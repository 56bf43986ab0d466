#include "corvexkit/log/CXLog.h"

#include "corvexkit/log/RotatingFileSink.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <unistd.h>

#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger logger{u"app"};

class CapturingSink : public CXLogSink {
public:
    void write(const QByteArray &line) override
    {
        if (complains) qWarning("the disk is full");
        lines << QString::fromUtf8(line);
    }
    QStringList lines;
    bool complains = false; // through Qt, whenever it writes
};

// The lines in the files of a folder, by name: "one, two; three".
QString contentsOf(const QString &folder)
{
    QStringList contents;
    for (const QFileInfo &each : QDir{folder}.entryInfoList(QDir::Files, QDir::Name)) {
        QFile file{each.filePath()};
        const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString{};
        contents << text.chopped(text.endsWith(u'\n') ? 1 : 0).replace(u"\n"_s, u", "_s);
    }
    return contents.join(u"; "_s);
}

// What `action` writes to standard error.
QString standardErrorOf(const std::function<void()> &action)
{
    QTemporaryFile file;
    if (!file.open()) return u"no temporary file"_s;
    const int before = dup(STDERR_FILENO);
    dup2(file.handle(), STDERR_FILENO);
    action();
    std::fflush(stderr);
    dup2(before, STDERR_FILENO);
    close(before);
    file.seek(0);
    return QString::fromUtf8(file.readAll());
}

} // namespace

class CXLog_test : public QObject {
    Q_OBJECT

    std::shared_ptr<CapturingSink> m_sink;

private Q_SLOTS:
    void init()
    {
        m_sink = std::make_shared<CapturingSink>();
        CXLog::setSink(m_sink);
        CXLog::setTimeSource([] { return at("2030-05-01 09:00:00"); });
    }
    void cleanup()
    {
        CXLog::setSink(nullptr);
        CXLog::setTimeSource({});
        CXLog::setMinimumLevel(CXLogLevel::Info);
    }

    void keepsOneEntryToALineThatBeginsWithATime()
    {
        logger.error(u"100 %1 of %2");
        logger.warning(u"one\ntwo\r\nthree\rfour\n\n");
        QCOMPARE(m_sink->lines, QStringList({u"2030-05-01T09:00:00.000Z error app: 100 %1 of %2\n"_s,
                                             u"2030-05-01T09:00:00.000Z warning app: one\n    two\n"
                                             "    three\n    four\n"_s}));
    }

    void leavesOutLevelsThatAreOff()
    {
        QString text = u"dear"_s;
        const auto build = [&text] { return std::exchange(text, u"built again"_s); };
        logger.debug(build);
        CXLog::setMinimumLevel(CXLogLevel::Debug);
        logger.debug(build);
        CXLog::setMinimumLevel(CXLogLevel::Error);
        logger.warning(build);
        QCOMPARE(m_sink->lines, QStringList{u"2030-05-01T09:00:00.000Z debug app: dear\n"_s});
    }

    void takesInQtMessages()
    {
        const QtMessageHandler before = qInstallMessageHandler(nullptr);
        CXLog::installQtMessageHandler();
        CXLog::installQtMessageHandler(); // twice is once
        static const QLoggingCategory category{"qt.some.part"};
        m_sink->complains = true; // which must not come back to it
        qWarning("from Qt");
        qCCritical(category, "from a part");
        qDebug("not at this level");
        qInstallMessageHandler(before);
        QCOMPARE(m_sink->lines,
                 QStringList({u"2030-05-01T09:00:00.000Z warning qt: from Qt\n"_s,
                              u"2030-05-01T09:00:00.000Z error qt.some.part: from a part\n"_s}));
    }

    void takesLinesFromManyThreads()
    {
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < 4; ++i)
                threads.emplace_back([] {
                    for (int line = 0; line < 100; ++line)
                        logger.info(u"line");
                });
        }
        QCOMPARE(m_sink->lines.size(), 400);
    }

    void rotatesFiles_data() { addCaseRows("corvexkit/rotation.txt", 4); }
    void rotatesFiles()
    {
        QFETCH(QStringList, cells);
        const QTemporaryDir home;
        const QString folder = home.filePath(u"new/logs"_s);
        const RotatingFileSink::Limits limits{.bytes = cells[0].toInt(), .files = cells[1].toInt()};
        RotatingFileSink sink{folder, limits};
        QVERIFY(!QDir{folder}.exists()); // nothing before the first line
        for (const QString &line : cells[2].split(u", "_s)) {
            sink.write(line.toUtf8() + '\n');
            RotatingFileSink{home.path(), limits}.write(line.toUtf8() + '\n'); // goes on in a file of before
        }
        QCOMPARE(contentsOf(folder), cells[3]);
        QCOMPARE(contentsOf(home.path()), cells[3]);
    }

    void saysOnceThatAFolderCannotBeWritten()
    {
        const QTemporaryDir home;
        QFile inTheWay{home.filePath(u"logs"_s)};
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        RotatingFileSink sink{home.filePath(u"logs"_s)};
        const QString said = standardErrorOf([&] {
            sink.write("first\n");
            sink.write("second\n");
        });
        QVERIFY2(said.contains(u"logs/orvane.log cannot be written"), qPrintable(said));
        QVERIFY(said.endsWith(u"first\n"));
        QCOMPARE(inTheWay.size(), 0);
    }
};

ORVANE_TEST(CXLog_test)
#include "CXLog_test.moc"
