#include "platform/OutsideChangeWatcher.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/OutsideChange.h"
#include "support/Files.h"
#include "support/LogRecorder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;

class OutsideChangeWatcher_test : public QObject {
    Q_OBJECT

    StoreFixture m_store;
    DataFolders m_folders = m_store.kit().folders();

    // The watcher takes what it heard, once it has heard something.
    void hear()
    {
        QTRY_VERIFY(!m_store.clock.isIdle());
        m_store.clock.advance(OutsideChangeWatcher::gathering);
    }

private Q_SLOTS:
    void showsWhatAnotherProcessSavedAgainAndAgain()
    {
        const QString task = aTask("Rent").savedIn(m_store);
        QStringList seen;
        const auto observation =
            m_store.kit().center().addObserver(KWDataDidChangeOutsideMainAppNotification, [&](const auto &) {
                seen << m_store.context().find<KWTask>(task)->model().title;
            });
        QVERIFY(announceOutsideChange(m_folders));
        const QByteArray known = lastOutsideChange(m_folders);
        OutsideChangeWatcher watcher{m_folders, m_store.kit().manager(), m_store.kit().center(),
                                     m_store.clock};
        watcher.start();
        write(m_folders.outsideChange(), known);
        hear();
        QCOMPARE(seen, QStringList{});

        const Store::Opening another = Store::open(m_folders.store(), m_store.clock);
        KWEventBus bus;
        const auto process = KWCoreDataManager::make(*another.store, bus).value();
        QStringList titles;
        for (const QString &title : {u"Pay rent"_s, u"Rent paid"_s, u"Rent due"_s}) {
            process->MR_defaultContext().find<KWTask>(task)->set(&KWTaskModel::title, title);
            QVERIFY(process->MR_defaultContext().save());
            for (int count = 0; count < 20; ++count) // heard together
                QVERIFY(announceOutsideChange(m_folders));
            hear();
            QCOMPARE(seen, titles << title);
        }
        QVERIFY(QFile::remove(m_folders.outsideChange()));
        hear();
        QCOMPARE(seen.size(), 3);
        QVERIFY(announceOutsideChange(m_folders));
        hear();
        QCOMPARE(seen.size(), 4);
    }

    void saysWhatCannotBeWatchedOrAnnounced()
    {
        LogRecorder log;
        const QString file = m_folders.outsideChange();
        QVERIFY(QFile::remove(file) && QDir{}.mkpath(file));
        OutsideChangeWatcher watcher{m_folders, m_store.kit().manager(), m_store.kit().center(),
                                     m_store.clock};
        watcher.start();
        QCOMPARE(log.lines(u"store"_s),
                 QStringList{u"Changes from outside are not heard: “%1” cannot be watched."_s.arg(file)});
        QCOMPARE(announceOutsideChange(m_folders).error().sentence,
                 u"The open window could not be told of the change: “%1” cannot be written."_s.arg(file));
    }
};

ORVANE_TEST(OutsideChangeWatcher_test)
#include "OutsideChangeWatcher_test.moc"
