#include "platform/OutsideChangeWatcher.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTag.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/OutsideChange.h"
#include "support/LogRecorder.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// A process of its own on a data folder: what it knows of the store it has read itself.
struct StoreProcess {
    explicit StoreProcess(const DataFolders &folders, const CXClock &clock)
        : opening{Store::open(folders.store(), clock)}
        , manager{KWCoreDataManager::make(*opening.store, bus).value()}
    {
    }
    ObjectContext &context() { return manager->MR_defaultContext(); }

    Store::Opening opening;
    KWEventBus bus;
    std::unique_ptr<KWCoreDataManager> manager;
};

} // namespace

class OutsideChangeWatcher_test : public QObject {
    Q_OBJECT

    struct Scene {
        Scene() { QDir{}.mkpath(folders.data); }

        QTemporaryDir folder;
        DataFolders folders = DataFolders::locate(folder.path());
        ManualClock clock{"2030-05-01 09:00"};
        StoreProcess window{folders, clock};
        StoreProcess command{folders, clock};
        KWNotificationCenter center;
        QList<QString> posted;
        KWNotificationCenter::Observation observation =
            center.addObserver([this](const KWNotification &each) { posted << each.name; });
        OutsideChangeWatcher watcher{folders, *window.manager, center, clock};
    };
    std::unique_ptr<Scene> m_scene;

    // The watcher takes what it heard, once it has heard something.
    void hear()
    {
        QTRY_VERIFY(!m_scene->clock.isIdle());
        m_scene->clock.advance(OutsideChangeWatcher::gathering);
    }

private Q_SLOTS:
    void init() { m_scene = std::make_unique<Scene>(); }
    void cleanup() { m_scene.reset(); }

    void showsWhatAnotherProcessSaved()
    {
        KWTagModel tag;
        tag.sid = u"tag1"_s;
        tag.name = tag.label = u"errand"_s;
        m_scene->command.context().insert<KWTag>(tag);
        QVERIFY(m_scene->command.context().save());
        KWTag *shown = m_scene->window.context().find<KWTag>(tag.sid);
        QVERIFY(shown);
        m_scene->watcher.start();

        m_scene->command.context().find<KWTag>(tag.sid)->set(&KWTagModel::label, u"Errand"_s);
        QVERIFY(m_scene->command.context().save());
        QVERIFY(announceOutsideChange(m_scene->folders));
        QString labelWhenPosted;
        const auto observation =
            m_scene->center.addObserver(KWDataDidChangeOutsideMainAppNotification,
                                        [&](const auto &) { labelWhenPosted = shown->model().label; });
        hear();
        QCOMPARE(labelWhenPosted, u"Errand"_s);
    }

    void hearsChangesTogetherAgainAndAgain()
    {
        m_scene->watcher.start();
        for (int times = 1; times <= 3; ++times) {
            for (int count = 0; count < 20; ++count)
                QVERIFY(announceOutsideChange(m_scene->folders));
            hear();
            QCOMPARE(m_scene->posted.size(), times);
        }
    }

    void hearsThoughTheFileIsRemoved()
    {
        m_scene->watcher.start();
        QVERIFY(QFile::remove(m_scene->folders.outsideChange()));
        hear();
        QCOMPARE(m_scene->posted.size(), 0);
        QVERIFY(announceOutsideChange(m_scene->folders));
        hear();
        QCOMPARE(m_scene->posted.size(), 1);
    }

    void ignoresAStampItKnows()
    {
        QVERIFY(announceOutsideChange(m_scene->folders));
        const QByteArray stamp = lastOutsideChange(m_scene->folders);
        m_scene->watcher.start();
        QCOMPARE(lastOutsideChange(m_scene->folders), stamp);
        QFile file{m_scene->folders.outsideChange()};
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(stamp) == stamp.size());
        file.close();
        hear();
        QCOMPARE(m_scene->posted.size(), 0);
    }

    void saysWhatCannotBeWatchedOrAnnounced()
    {
        LogRecorder log;
        const QString file = m_scene->folders.outsideChange();
        QVERIFY(QDir{}.mkpath(file));
        m_scene->watcher.start();
        QCOMPARE(log.lines(u"store"_s),
                 QStringList{u"Changes from outside are not heard: “%1” cannot be watched."_s.arg(file)});
        QCOMPARE(announceOutsideChange(m_scene->folders).error().sentence,
                 u"The open window could not be told of the change: “%1” cannot be written."_s.arg(file));
    }
};

ORVANE_TEST(OutsideChangeWatcher_test)
#include "OutsideChangeWatcher_test.moc"
