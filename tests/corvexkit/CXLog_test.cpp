#include "corvexkit/log/CXLog.h"

#include "corvexkit/log/RotatingFileSink.h"
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
    void write(const QByteArray &line) override { lines << QString::fromUtf8(line); }
    QStringList lines;
};

// A sink that makes Qt complain while it writes.
class NoisySink : public CapturingSink {
public:
    void write(const QByteArray &line) override
    {
        qWarning("the disk is full");
        CapturingSink::write(line);
    }
};

QString contents(const QDir &folder, const QString &name)
{
    QFile file{folder.filePath(name)};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"missing"_s;
}

QStringList filesIn(const QDir &folder) { return folder.entryList(QDir::Files, QDir::Name); }

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
        CXLog::setTimeSource([] { return at("2030-05-01 09:00:00.123"); });
    }
    void cleanup()
    {
        CXLog::setSink(nullptr);
        CXLog::setTimeSource({});
        CXLog::setMinimumLevel(CXLogLevel::Info);
    }

    void writesLinesAsGiven()
    {
        logger.info(u"New Day: 2030-05-01"_s);
        logger.error(u"100 %1 of %2");
        QCOMPARE(m_sink->lines, QStringList({u"2030-05-01T09:00:00.123Z info app: New Day: 2030-05-01\n"_s,
                                             u"2030-05-01T09:00:00.123Z error app: 100 %1 of %2\n"_s}));
    }

    void keepsOneEntryToALineThatBeginsWithATime()
    {
        logger.warning(u"one\ntwo\r\nthree\rfour\n\n");
        QCOMPARE(m_sink->lines, QStringList{u"2030-05-01T09:00:00.123Z warning app: one\n    two\n    three\n"
                                            "    four\n"_s});
    }

    void leavesOutLevelsThatAreOff()
    {
        int built = 0;
        const auto text = [&built] {
            ++built;
            return u"dear"_s;
        };
        logger.debug(text);
        QCOMPARE(built, 0);
        CXLog::setMinimumLevel(CXLogLevel::Debug);
        logger.debug(text);
        CXLog::setMinimumLevel(CXLogLevel::Error);
        logger.warning(text);
        QCOMPARE(built, 1);
        QCOMPARE(m_sink->lines, QStringList{u"2030-05-01T09:00:00.123Z debug app: dear\n"_s});
    }

    void takesInQtMessages()
    {
        const QtMessageHandler before = qInstallMessageHandler(nullptr);
        CXLog::installQtMessageHandler();
        CXLog::installQtMessageHandler(); // twice is once
        static const QLoggingCategory category{"qt.some.part"};
        qWarning("from Qt");
        qCCritical(category, "from a part");
        qDebug("not at this level");
        qInstallMessageHandler(before);
        QCOMPARE(m_sink->lines,
                 QStringList({u"2030-05-01T09:00:00.123Z warning qt: from Qt\n"_s,
                              u"2030-05-01T09:00:00.123Z error qt.some.part: from a part\n"_s}));
    }

    void isNotCaughtByItsOwnSink()
    {
        const auto noisy = std::make_shared<NoisySink>();
        CXLog::setSink(noisy);
        const QtMessageHandler before = qInstallMessageHandler(nullptr);
        CXLog::installQtMessageHandler();
        logger.info(u"kept");
        qInstallMessageHandler(before);
        QCOMPARE(noisy->lines.size(), 1);
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

    void rotatesFiles()
    {
        const QTemporaryDir home;
        const QDir folder{home.filePath(u"new/logs"_s)};
        RotatingFileSink sink{folder.path(), {.bytes = 10, .files = 3}};
        QVERIFY(!folder.exists()); // nothing before the first line
        for (const char *line : {"one\n", "two\n", "three\n", "four\n", "a line beyond the limit\n", "six\n"})
            sink.write(line);
        QCOMPARE(filesIn(folder), QStringList({u"orvane.1.log"_s, u"orvane.2.log"_s, u"orvane.log"_s}));
        QCOMPARE(contents(folder, u"orvane.log"_s), u"six\n"_s);
        QCOMPARE(contents(folder, u"orvane.1.log"_s), u"a line beyond the limit\n"_s);
        QCOMPARE(contents(folder, u"orvane.2.log"_s), u"four\n"_s);
    }

    void goesOnInAFileOfBefore()
    {
        const QTemporaryDir home;
        const QDir folder{home.path()};
        for (const char *line : {"one\n", "two\n", "three\n"})
            RotatingFileSink{folder.path(), {.bytes = 10, .files = 2}}.write(line);
        QCOMPARE(contents(folder, u"orvane.1.log"_s), u"one\ntwo\n"_s);
        QCOMPARE(contents(folder, u"orvane.log"_s), u"three\n"_s);
    }

    void givesALongFirstLineNoEmptyFileBeforeIt()
    {
        const QTemporaryDir home;
        RotatingFileSink{home.path(), {.bytes = 5, .files = 3}}.write("beyond the limit\n");
        QCOMPARE(filesIn(QDir{home.path()}), QStringList{u"orvane.log"_s});
    }

    void keepsOneFileWhereOneIsAllowed()
    {
        const QTemporaryDir home;
        RotatingFileSink sink{home.path(), {.bytes = 5, .files = 1}};
        sink.write("one\n");
        sink.write("two\n");
        QCOMPARE(filesIn(QDir{home.path()}), QStringList{u"orvane.log"_s});
        QCOMPARE(contents(QDir{home.path()}, u"orvane.log"_s), u"two\n"_s);
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
