#include "model/OrvaneKit.h"
#include "model/account/KWAccountManager.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

/// The program itself, from its start to its end.
class ClientProcess_test : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_home;

    QString inHome(const QString &name) const { return m_home->filePath(name); }
    bool isRunMarked() const { return QFileInfo::exists(inHome(u"running"_s)); }

    std::unique_ptr<QProcess> start(bool endsOncePainted, const QStringList &arguments = {}) const
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        if (endsOncePainted) environment.insert(u"ORVANE_REPORT_FIRST_PAINT"_s, u"1"_s);
        process->setProcessEnvironment(environment);
        process->start(QStringLiteral(ORVANE_CLIENT), QStringList{u"--home"_s, m_home->path()} + arguments);
        return process;
    }
    static bool hasEnded(QProcess &process)
    {
        return QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, 20'000);
    }

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        const ManualClock clock{"2026-11-21 09:00"};
        const auto opening = OrvaneKit::open(DataFolders::locate(m_home->path()), clock);
        QVERIFY(opening.kit && opening.kit->account().signInLocally(QLocale::c()));
    }

    void paintsEndsAndLeavesNoMarkBehind()
    {
        const auto process = start(true);
        QVERIFY(hasEnded(*process));
        QCOMPARE(process->exitCode(), 0);
        QVERIFY(process->readAllStandardOutput().startsWith("painted "));
        QVERIFY(!isRunMarked());
    }

    void oneThatWasKilledLeavesItsMarkToTheNext()
    {
        const auto killed = start(false);
        QVERIFY(QTest::qWaitFor([this] { return isRunMarked(); }, 20'000));
        killed->kill();
        QVERIFY(hasEnded(*killed));
        QVERIFY(isRunMarked());
        const auto next = start(true);
        QVERIFY(hasEnded(*next));
        QCOMPARE(next->exitCode(), 0);
        QVERIFY(!isRunMarked());
    }

    void endsWhenItIsToldToAndAnotherStartHandsOver()
    {
        const auto first = start(false);
        QVERIFY(QTest::qWaitFor([this] { return isRunMarked(); }, 20'000));
        const auto second = start(false, {u"orvane://list/today"_s});
        QVERIFY(hasEnded(*second));
        QCOMPARE(second->exitCode(), 0);
        QCOMPARE(first->state(), QProcess::Running);
        first->terminate();
        QVERIFY(hasEnded(*first));
        QCOMPARE(first->exitStatus(), QProcess::NormalExit);
        QCOMPARE(first->exitCode(), 0);
        QVERIFY(!isRunMarked());
    }

    void refusesWhatItDoesNotKnow()
    {
        const auto process = start(false, {u"--theme"_s, u"pink"_s});
        QVERIFY(hasEnded(*process));
        QCOMPARE(process->exitCode(), 2);
        QVERIFY(QString::fromUtf8(process->readAllStandardError()).contains(u"“pink” is no theme"_s));
        QVERIFY(!isRunMarked());
    }
};

ORVANE_TEST(ClientProcess_test)
#include "ClientProcess_test.moc"
