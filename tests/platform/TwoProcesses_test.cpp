#include "support/TestMain.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

// Several real processes on one data folder.
class TwoProcesses_test : public QObject {
    Q_OBJECT

    struct EndProcess {
        void operator()(QProcess *process) const
        {
            process->closeWriteChannel();
            hasEnded(*process);
            delete process;
        }
    };
    using Process = std::unique_ptr<QProcess, EndProcess>;

    QTemporaryDir m_folder;

    Process start(const QStringList &links = {}) const
    {
        Process process{new QProcess};
        process->start(QStringLiteral(ORVANE_ONE_START), QStringList{m_folder.path()} + links);
        return process;
    }

    static QString nextLine(QProcess &process)
    {
        if (!QTest::qWaitFor([&process] { return process.canReadLine(); })) return u"(nothing)"_s;
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    static bool hasEnded(QProcess &process)
    {
        return QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; });
    }

private Q_SLOTS:
    void ofTwoAtOnceOneIsTheFirstUntilItIsKilled()
    {
        QVERIFY2(!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"), "run it on a bus");
        const Process one = start({u"orvane://one"_s}), other = start({u"orvane://other"_s});
        QStringList said{nextLine(*one), nextLine(*other)};
        const auto &[first, later] = said.at(0) == u"first"_s ? std::tie(one, other) : std::tie(other, one);
        said.sort();
        QCOMPARE(said, QStringList({u"first"_s, u"handed over"_s}));
        QVERIFY(nextLine(*first).startsWith(u"orvane://"_s));
        QVERIFY(hasEnded(*later));
        QCOMPARE(later->exitCode(), 0);

        first->kill();
        QVERIFY(hasEnded(*first));
        QVERIFY(QFileInfo::exists(m_folder.filePath(u"lock"_s)));
        QCOMPARE(nextLine(*start()), u"first"_s);
    }
};

ORVANE_TEST(TwoProcesses_test)
#include "TwoProcesses_test.moc"
