#include "app/DamagedStoreQuestion.h"

#include "app/RecordingAlerts.h"
#include "app/RunMarker.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

void startAnew(StoreFixture &store)
{
    const DataFolders folders = store.kit().folders();
    store.close();
    KWUserDefaults defaults{folders.config};
    if (const auto done = DataCare::restoreWhatWasAsked(folders, defaults, store.clock); !done)
        qFatal("%s", qUtf8Printable(done.error().sentence));
    store.reopen();
}

} // namespace

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

    void theBackupIsRestoredAtTheNextStart()
    {
        StoreFixture store;
        const StoreBackups backups{store.kit().folders()};
        QVERIFY(backups.makeDaily(store.context().connection(), store.clock.today()));
        const QString later = aTask("Later").savedIn(store);
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
        alerts.answer(0);
        QCOMPARE(relaunch.count, 1);

        startAnew(store);
        QVERIFY(!store.context().find<KWTask>(later));
        const QString again = aTask("Again").savedIn(store);
        startAnew(store); // once only
        QVERIFY(store.context().find<KWTask>(again));
    }
};

ORVANE_TEST(DamagedStoreQuestion_test)
#include "DamagedStoreQuestion_test.moc"
