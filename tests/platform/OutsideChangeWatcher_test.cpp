#include "platform/OutsideChangeWatcher.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/OutsideChange.h"
#include "support/LogRecorder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;

class OutsideChangeWatcher_test : public QObject {
    Q_OBJECT

    struct Scene {
        StoreFixture store;
        DataFolders folders = store.kit().folders();
        QString task = aTask("Rent").savedIn(store);
        QStringList titlesWhenPosted;
        KWNotificationCenter::Observation observation =
            store.kit().center().addObserver(KWDataDidChangeOutsideMainAppNotification, [this](const auto &) {
                titlesWhenPosted << store.context().find<KWTask>(task)->model().title;
            });
        OutsideChangeWatcher watcher{folders, store.kit().manager(), store.kit().center(), store.clock};

        // Another process: what it knows of the store it has read itself.
        Store::Opening opening = Store::open(folders.store(), store.clock);
        KWEventBus bus;
        std::unique_ptr<KWCoreDataManager> command = KWCoreDataManager::make(*opening.store, bus).value();
    };
    std::unique_ptr<Scene> m_scene;

    // The watcher takes what it heard, once it has heard something.
    void hear()
    {
        QTRY_VERIFY(!m_scene->store.clock.isIdle());
        m_scene->store.clock.advance(OutsideChangeWatcher::gathering);
    }

private Q_SLOTS:
    void init() { m_scene = std::make_unique<Scene>(); }
    void cleanup() { m_scene.reset(); }

    void showsWhatAnotherProcessSavedAgainAndAgain()
    {
        m_scene->watcher.start();
        QStringList titles;
        for (const QString &title : {u"Pay rent"_s, u"Rent paid"_s, u"Rent due"_s}) {
            ObjectContext &context = m_scene->command->MR_defaultContext();
            context.find<KWTask>(m_scene->task)->set(&KWTaskModel::title, title);
            QVERIFY(context.save());
            for (int count = 0; count < 20; ++count) // heard together
                QVERIFY(announceOutsideChange(m_scene->folders));
            hear();
            QCOMPARE(m_scene->titlesWhenPosted, titles << title);
        }
        QVERIFY(QFile::remove(m_scene->folders.outsideChange()));
        hear();
        QCOMPARE(m_scene->titlesWhenPosted.size(), 3);
        QVERIFY(announceOutsideChange(m_scene->folders));
        hear();
        QCOMPARE(m_scene->titlesWhenPosted.size(), 4);
    }

    void ignoresAStampItKnows()
    {
        QVERIFY(announceOutsideChange(m_scene->folders));
        const QByteArray stamp = lastOutsideChange(m_scene->folders);
        m_scene->watcher.start();
        QFile file{m_scene->folders.outsideChange()};
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(stamp) == stamp.size());
        file.close();
        hear();
        QCOMPARE(m_scene->titlesWhenPosted, QStringList{});
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
