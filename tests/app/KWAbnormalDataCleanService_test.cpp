#include "app/KWAbnormalDataCleanService.h"

#include "app/RecordingAlerts.h"
#include "model/exchange/DiagnosticData.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

struct RecordingDesktop final : FileManagerPort, MailPort {
    bool showItem(const QString &file) override
    {
        shown = file;
        return isThere;
    }
    void compose(const QString &, const QString &attachment) override { attached = attachment; }
    QString shown, attached;
    bool isThere = true;
};

} // namespace

class KWAbnormalDataCleanService_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sendsTheLogAndNothingThatWasTyped()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        aTask("Secret plan").savedIn(store);
        QVERIFY(QDir{}.mkpath(folders.log()));
        write(folders.log() + u"/orvane.log"_s, "What happened\n");
        store.kit().defaults().set(Settings::newTaskPriority, 5);
        store.kit().defaults().synchronise();

        RecordingAlerts alerts;
        RecordingDesktop desktop;
        int ends = 0;
        KWAbnormalDataCleanService service{
            {folders, store.clock, alerts, desktop, desktop, [&ends] { ++ends; }}};
        service.run();
        QCOMPARE(alerts.last.message, u"Send to Orvane"_s);
        alerts.answer(1);
        QCOMPARE(ends, 0);
        service.run();
        alerts.answer(0);
        QCOMPARE(ends, 1);
        QCOMPARE(desktop.shown, desktop.attached);
        QVERIFY(desktop.shown.endsWith(u".zip"));

        const QTemporaryDir unpacked;
        QProcess tar;
        tar.setWorkingDirectory(unpacked.path());
        tar.start(u"cmake"_s, {u"-E"_s, u"tar"_s, u"xf"_s, desktop.shown});
        QVERIFY(tar.waitForFinished() && tar.exitCode() == 0);
        QDir{QFileInfo{desktop.shown}.path()}.removeRecursively();
        QCOMPARE(bytesOf(unpacked.filePath(u"log/orvane.log"_s)), "What happened\n"_ba);
        const QByteArray text = bytesOf(unpacked.filePath(u"description.json"_s));
        QVERIFY(!text.contains("Secret") && !text.contains("Inbox"));
        const QJsonObject object = QJsonDocument::fromJson(text).object();
        QCOMPARE(object[u"store"_s][u"records"_s][u"tasks"_s][u"all"_s].toInt(), 1);
        QCOMPARE(object[u"store"_s][u"integrity"_s].toString(), u"ok"_s);
        QCOMPARE(object[u"preferences"_s].toArray().first().toString(), u"new_task_priority"_s);
    }

    void saysWhereTheFileIsWithoutAFileManager()
    {
        StoreFixture store;
        RecordingAlerts alerts;
        RecordingDesktop desktop;
        desktop.isThere = false;
        bool hasEnded = false;
        KWAbnormalDataCleanService service{
            {store.kit().folders(), store.clock, alerts, desktop, desktop, [&] { hasEnded = true; }}};
        service.run();
        alerts.answer(0);
        QVERIFY2(alerts.last.text.contains(desktop.shown), qPrintable(alerts.last.text));
        QVERIFY(!desktop.shown.isEmpty() && !hasEnded);
        QDir{QFileInfo{desktop.shown}.path()}.removeRecursively();
    }

    void aStoreThatCannotBeReadIsDescribedToo()
    {
        const QTemporaryDir home;
        const ManualClock clock{"2030-05-01 09:00"};
        const DataFolders folders = DataFolders::locate(home.path());
        for (const bool isThere : {false, true}) {
            if (isThere) write(folders.store(), QByteArray(5000, 'x'));
            QVERIFY(describeData(folders, clock)[u"store"_s].toObject().contains(u"problem"_s));
        }
    }
};

ORVANE_TEST(KWAbnormalDataCleanService_test)
#include "KWAbnormalDataCleanService_test.moc"
