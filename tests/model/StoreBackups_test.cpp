#include "model/store/StoreBackups.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/StoreCare.h"
#include "support/Answers.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Overwrites the last page: a store that opens and is damaged all the same.
void damage(const QString &path)
{
    const QByteArray sound = bytesOf(path);
    write(path, sound.chopped(4096) + QByteArray(4096, '\x5a'));
}

} // namespace

/// Backups, their use, and the care that makes them, over real files.
class StoreBackups_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWeekOfDaysIsKept()
    {
        StoreFixture store;
        const DataFolders &folders = store.kit().folders();
        QDir{}.mkpath(folders.backups());
        write(folders.backups() + u"/store-2030-04-30.sqlite.partial-1"_s, "half");
        write(folders.backups() + u"/store-2040-01-01.sqlite"_s, "of a clock that was wrong");
        write(folders.data + u"/store.replaced-2030-05-02T083000-2.sqlite"_s, "earlier");
        write(folders.data + u"/store.damaged-2030-05-02T083000.sqlite"_s, "of no use");
        StoreCare care{store.kit().manager(), store.kit().center(), folders};
        care.start(LastRun::Ended);
        for (int day = 0; day < 9; ++day) {
            QTRY_VERIFY(!StoreBackups{folders}.isDue(store.clock.today()));
            QCoreApplication::processEvents();
            store.clock.advance(24h);
            store.kit().center().post(KWNewDayComesNotification);
        }
        const auto name = [](const StoreBackup &each) { return QFileInfo{each.path}.fileName(); };
        QTRY_COMPARE(joined(StoreBackups{folders}.list(), name),
                     u"store-2040-01-01.sqlite store-2030-05-10.sqlite store-2030-05-09.sqlite "
                     "store-2030-05-08.sqlite store-2030-05-07.sqlite store-2030-05-06.sqlite "
                     "store-2030-05-05.sqlite store.replaced-2030-05-02T083000-2.sqlite"_s);
        QCOMPARE(QDir{folders.backups()}.entryList(QDir::Files).size(), 7);
    }

    void aStoreThatIsGoneIsNoFirstStart()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        QVERIFY(StoreBackups{folders}.makeDaily(store.context().connection(), store.clock.today()));
        store.close();
        write(folders.store(), {});
        QCOMPARE(OrvaneKit::open(folders, store.clock).problem, StoreProblem::Lost);
        QVERIFY(QFile::remove(folders.store()));
        QCOMPARE(OrvaneKit::open(folders, store.clock).problem, StoreProblem::Lost);
        QVERIFY(Store::startFresh(folders.store(), store.clock, AsideReason::FreshStart));
        QVERIFY(OrvaneKit::open(folders, store.clock).kit);
    }

    void aStoreThatWasReplacedCanComeBack()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        const QString file = folders.data + u"/mine.sqlite"_s;
        QVERIFY(StoreBackups::copyTo(file, store.context().connection()));
        const QString later = aTask("Later").savedIn(store);
        store.close();
        const Result<QString> kept = restoreStore(file, folders, store.clock);
        QCOMPARE(*kept, u"store.replaced-2030-05-01T090000.sqlite"_s);
        store.reopen();
        QVERIFY(!store.context().find<KWTask>(later));
        store.close();
        QVERIFY(restoreStore(folders.data + u'/' + *kept, folders, store.clock));
        store.reopen();
        QVERIFY(store.context().find<KWTask>(later));
    }

    void whatIsNoGoodStoreIsRefused()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        const QDir data{folders.data};
        const QString task = aTask("Stays").savedIn(store);
        write(data.filePath(u"text.sqlite"_s), "A letter");
        write(data.filePath(u"empty.sqlite"_s), {});
        for (const QString &name : {u"good.sqlite"_s, u"damaged.sqlite"_s, u"newer.sqlite"_s})
            QVERIFY(StoreBackups::copyTo(data.filePath(name), store.context().connection()));
        damage(data.filePath(u"damaged.sqlite"_s));
        Connection{data.filePath(u"newer.sqlite"_s).toStdString(), Connection::Access::ReadWrite}.execute(
            "PRAGMA user_version = 4000");
        for (const QString &name : {u"text.sqlite"_s, u"store.sqlite"_s})
            QVERIFY(!StoreBackups::copyTo(data.filePath(name), store.context().connection()));
        QVERIFY(isRefused(restoreStore(data.filePath(u"good.sqlite"_s), folders, store.clock),
                          u"Another program has the store open"));
        store.close();
        const QStringList before = data.entryList(QDir::Files);

        for (const auto &[file, why] : {std::pair{u"missing.sqlite"_s, u"There is no file"_s},
                                        {u"text.sqlite"_s, u"is not an Orvane store"_s},
                                        {u"empty.sqlite"_s, u"is not an Orvane store"_s},
                                        {u"damaged.sqlite"_s, u"is damaged"_s},
                                        {u"newer.sqlite"_s, u"a newer version"_s},
                                        {u"store.sqlite"_s, u"is the store itself"_s}}) {
            QVERIFY2(isRefused(restoreStore(data.filePath(file), folders, store.clock), why),
                     qUtf8Printable(file));
            QCOMPARE(data.entryList(QDir::Files), before);
        }
        store.reopen();
        QVERIFY(store.context().find<KWTask>(task));
    }

    void damageIsFoundAndNotBackedUp()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        const Day today = store.clock.today();
        const StoreBackups backups{folders};
        aTask("To be damaged").with(&KWTaskModel::content, QString{50'000, u'x'}).savedIn(store);
        for (const int day : {-3, -2, -1})
            QVERIFY(backups.makeDaily(store.context().connection(), today + std::chrono::days{day}));
        damage(backups.list().first().path);
        store.close();
        damage(folders.store());
        store.reopen();

        StoreCare care{store.kit().manager(), store.kit().center(), folders};
        QList<QString> found;
        care.onDamage = [&found](const std::optional<StoreBackup> &newestGood) {
            found << (newestGood ? QFileInfo{newestGood->path}.fileName() : QString{});
        };
        care.start(LastRun::Ended); // the backup of the day meets it
        QTRY_COMPARE(found, QList{u"store-2030-04-29.sqlite"_s});
        QVERIFY(backups.isDue(today));
    }

    // Also where no backup is due that would meet it.
    void aRunThatBrokeOffIsFollowedByACheck()
    {
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        aTask("To be damaged").with(&KWTaskModel::content, QString{50'000, u'x'}).savedIn(store);
        QVERIFY(StoreBackups{folders}.makeDaily(store.context().connection(), store.clock.today()));
        store.close();
        damage(folders.store());
        store.reopen();

        StoreCare care{store.kit().manager(), store.kit().center(), folders};
        QStringList found;
        care.onDamage = [&found](const std::optional<StoreBackup> &newestGood) {
            found << (newestGood ? QFileInfo{newestGood->path}.fileName() : QString{});
        };
        care.start(LastRun::BrokeOff);
        QTRY_COMPARE(found, QStringList{u"store-2030-05-01.sqlite"_s});
    }
};

ORVANE_TEST(StoreBackups_test)
#include "StoreBackups_test.moc"
