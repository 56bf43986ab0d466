#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Store.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Set for the program started by the test: the store it saves to until it is killed.
constexpr const char *writerVariable = "ORVANE_TEST_WRITES_TO";
// How often it is killed, when not ten times.
constexpr const char *roundsVariable = "ORVANE_KILL_ROUNDS";

[[noreturn]] void writeUntilKilled(const QString &path)
{
    const ManualClock clock{"2030-05-01 09:00"};
    const Store::Opening opening = Store::open(path, clock);
    if (!opening.store) qFatal("%s", qUtf8Printable(opening.sentence));
    const auto context = std::move(*opening.store->makeContext());
    const QString list = KWProject::createProjectNamed(u"Home"_s, u"user"_s, *context).sid();
    for (int i = 0;; ++i) {
        KWTaskModel task;
        task.projectID = list;
        task.title = u"Task"_s;
        task.content = QString{(i * 997) % 20'000, u'x'};
        const QString id = context->insert<KWTask>(task).sid();
        if (!context->save()) qFatal("A task cannot be saved");
        std::printf("saved %s\n", qPrintable(id));
        std::fflush(stdout);
        context->find<KWTask>(id)->updateStatus(KWTaskStatusCompleted);
        if (!context->save()) qFatal("A task cannot be completed");
        std::printf("done %s\n", qPrintable(id));
        std::fflush(stdout);
    }
}

} // namespace

class StoreDurability_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keepsEverySaveThatReturned();
};

void StoreDurability_test::initTestCase()
{
    if (qEnvironmentVariableIsSet(writerVariable)) writeUntilKilled(qEnvironmentVariable(writerVariable));
}

void StoreDurability_test::keepsEverySaveThatReturned()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"store.sqlite"_s);
    const ManualClock clock{"2030-05-01 09:00"};
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(writerVariable), path);
    QSet<QByteArray> announced;
    QSet<QByteArray> completed;
    const int rounds = qEnvironmentVariableIntValue(roundsVariable);

    for (int round = 0; round < (rounds > 0 ? rounds : 10); ++round) {
        QProcess writer;
        writer.setProcessEnvironment(environment);
        writer.start(QCoreApplication::applicationFilePath(), {u"StoreDurability_test"_s});
        QByteArray output;
        const qsizetype enough = QRandomGenerator::global()->bounded(300, 3000);
        while (output.size() < enough) {
            QVERIFY2(writer.waitForReadyRead(), writer.readAllStandardError().constData());
            output += writer.readAllStandardOutput();
        }
        writer.kill();
        QVERIFY(writer.waitForFinished());
        output += writer.readAllStandardOutput();
        output.truncate(output.lastIndexOf('\n'));
        for (const QByteArray &line : output.split('\n')) {
            if (line.startsWith("saved ")) announced << line.mid(6);
            if (line.startsWith("done ")) completed << line.mid(5);
        }

        const Store::Opening opening = Store::open(path, clock);
        QVERIFY2(opening.store, qUtf8Printable(opening.sentence));
        const auto context = std::move(*opening.store->makeContext());
        for (const QByteArray &id : announced) {
            const KWTask *task = context->find<KWTask>(QString::fromLatin1(id));
            QVERIFY2(task, id.constData());
            QVERIFY2(task->isCompleted() || !completed.contains(id), id.constData());
        }
        QCOMPARE(context->number("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
                 0);
    }
    QVERIFY(announced.size() >= 5);
    if (rounds > 0) qInfo("%d rounds, %lld saves kept", rounds, qint64(announced.size() + completed.size()));
}

ORVANE_TEST(StoreDurability_test)
#include "StoreDurability_test.moc"
