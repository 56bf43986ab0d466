#include "app/DamagedStoreQuestion.h"

#include "app/RecordingAlerts.h"
#include "app/RunMarker.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// From a run that broke off to the backup that takes the place of the store.
class DamagedStoreQuestion_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyAProperEndCountsAsOne()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"running"_s);
        QCOMPARE(RunMarker{file}.begin(), LastRun::Ended);
        RunMarker next{file};
        QCOMPARE(next.begin(), LastRun::BrokeOff);
        next.end();
        QCOMPARE(RunMarker{file}.begin(), LastRun::Ended);
    }

    void theBackupIsRestoredAtTheNextStartAndOnce()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        const StoreBackups backups{folders};
        QVERIFY(backups.makeDaily(store.context().connection(), store.clock.today()));
        RecordingAlerts alerts;
        CountingRelaunch relaunch;
        DataCare care{store.kit(), relaunch};
        DamagedStoreQuestion question{alerts, care};

        question.ask(std::nullopt);
        QCOMPARE(alerts.last.buttons.size(), 1);
        question.ask(backups.newestGood());
        QVERIFY2(alerts.last.text.startsWith(u"The backup of "_s), qUtf8Printable(alerts.last.text));
        QCOMPARE(alerts.last.defaultButton, 1);
        alerts.answer(1);
        QCOMPARE(relaunch.count, 0);

        const QString note = folders.config + u"/standard.ini"_s;
        QFile::remove(note);
        QVERIFY(QDir{}.mkpath(note));
        const auto restore = std::exchange(alerts.answer, {});
        restore(0);
        QVERIFY(alerts.last.text.contains(u"cannot be written"_s) && relaunch.count == 0);
        QVERIFY(QDir{}.rmdir(note));
        restore(0);
        QCOMPARE(relaunch.count, 1);

        for (const bool isRestored : {true, false}) {
            const QString later = aTask("Later").savedIn(store);
            store.close();
            KWUserDefaults defaults{folders.config};
            QVERIFY(DataCare::restoreWhatWasAsked(folders, defaults, store.clock));
            store.reopen();
            QCOMPARE(store.context().find<KWTask>(later) == nullptr, isRestored);
        }
    }
};

ORVANE_TEST(DamagedStoreQuestion_test)
#include "DamagedStoreQuestion_test.moc"
