#include "focus/FocusRecordQueue.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "support/FailingWrites.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// Sessions that the disk does not take, over several runs of the program.
class FocusRecordQueue_test : public QObject {
    Q_OBJECT

    struct Run {
        explicit Run(StoreFixture &store) : Run{store, store.kit().defaults()} {}
        Run(StoreFixture &store, KWUserDefaults &defaults) : journal{defaults}, queue{store.kit(), journal}
        {
            queue.onFailure = [this](const QString &sentence) { told << sentence; };
            queue.storeWaiting();
        }
        FocusJournal journal;
        FocusRecordQueue queue;
        QStringList told;
    };

    std::unique_ptr<FailingWrites> m_writes;
    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<Run> m_run;
    QString m_task;

    void restart()
    {
        m_run.reset();
        m_store->reopen();
        m_run = std::make_unique<Run>(*m_store);
    }
    FocusRecord pomo(minutes after, KWPomoStatus status = KWPomoStatusCompleted) const
    {
        const Instant start = m_store->clock.now() + after;
        return {.startDate = start,
                .endDate = start + 25min,
                .status = status,
                .stretches = {
                    {.startDate = start, .endDate = start + 25min, .target = FocusTarget::task(m_task)}}};
    }
    /// Whether it is safe on disk although the store fails.
    bool failToStore(const FocusRecord &record)
    {
        m_writes->failAt(1);
        return bool(m_run->queue.store(record));
    }
    int storedCount() const { return int(m_store->context().fetch<KWPomodoro>({}).size()); }
    std::int64_t creditedSeconds() const
    {
        const auto summaries = m_store->context().find<KWTask>(m_task)->focusSummaries();
        return summaries.isEmpty() ? 0 : (*summaries.first())->pomoDuration;
    }

private Q_SLOTS:
    void init()
    {
        m_writes = std::make_unique<FailingWrites>();
        m_store = std::make_unique<StoreFixture>();
        m_task = aTask("Water the plants").savedIn(*m_store);
        m_run = std::make_unique<Run>(*m_store);
    }
    void cleanup()
    {
        m_run.reset();
        m_store.reset();
        m_writes.reset();
    }

    void storesInALaterRunWhatItCouldNot()
    {
        QVERIFY(failToStore(pomo(0min)));
        QVERIFY(failToStore(pomo(30min)));
        QCOMPARE(m_run->told.size(), 2);
        QVERIFY(m_run->told.first().startsWith(u"The focus time could not be saved"));
        QCOMPARE(storedCount(), 0);
        restart();
        QCOMPARE(storedCount(), 2);
        QCOMPARE(creditedSeconds(), 50 * 60);
        QVERIFY(m_run->journal.waiting().isEmpty() && m_run->told.isEmpty());
        restart();
        QCOMPARE(storedCount(), 2);
    }

    void creditsInALaterRunWhatWasGivenUp()
    {
        saved(*m_store, [&](ObjectContext &context) {
            context.find<KWTask>(m_task)->set(&KWTaskModel::status, KWTaskStatusCompleted);
        });
        QVERIFY(failToStore(pomo(0min, KWPomoStatusAbandoned)));
        QCOMPARE(creditedSeconds(), 0);
        restart();
        QCOMPARE(creditedSeconds(), 25 * 60);
        QCOMPARE(storedCount(), 0);
        restart();
        QCOMPARE(creditedSeconds(), 25 * 60);
    }

    void triesEachMinuteAndTellsOnce()
    {
        QVERIFY(failToStore(pomo(0min)));
        m_writes->failAt(1);
        m_store->kit().center().post(KWNewMinuteComesNotification);
        QCOMPARE(storedCount(), 0);
        m_store->kit().center().post(KWNewMinuteComesNotification);
        QCOMPARE(storedCount(), 1);
        QCOMPARE(m_run->told.size(), 1);
    }

    void letsOneThatFailsHoldNoOtherBack()
    {
        QVERIFY(failToStore(pomo(0min)));
        QVERIFY(failToStore(pomo(30min)));
        m_writes->failAt(1);
        m_store->kit().center().post(KWNewMinuteComesNotification);
        QCOMPARE(storedCount(), 1);
        QCOMPARE(m_run->journal.waiting().size(), 1);
    }

    void waitsForItsUser()
    {
        const FocusJournal::Session ofAnother{.userID = u"another"_s, .record = pomo(60min)};
        QVERIFY(m_run->queue.store(ofAnother));
        QVERIFY(failToStore(pomo(0min)));
        QVERIFY(m_store->account().signOut());
        QVERIFY(!m_run->queue.store(pomo(30min)));
        restart();
        m_store->kit().center().post(KWNewMinuteComesNotification);
        QCOMPARE(storedCount(), 0);
        QCOMPARE(m_run->journal.waiting().size(), 2);
        QVERIFY(m_store->account().signInLocally(QLocale::c()));
        QCOMPARE(storedCount(), 1);
        QCOMPARE(m_run->journal.waiting(), QList{ofAnother});
    }

    // The program broke off behind the save and before the journal forgot the session.
    void storesNothingTwice()
    {
        const FocusRecord record = pomo(0min);
        QVERIFY(failToStore(record));
        const QStringList lines = m_store->kit().defaults().value(Settings::focusSessionsNotStored);
        restart();
        m_store->kit().defaults().set(Settings::focusSessionsNotStored, lines);
        restart();
        QCOMPARE(storedCount(), 1);
        QCOMPARE(creditedSeconds(), 25 * 60);
        QVERIFY(m_run->journal.waiting().isEmpty());
    }

    void saysWhenASessionIsNowhereOnDisk()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir{folder.path()}.mkdir(u"group.ini"_s));
        KWUserDefaults defaults{folder.path()};
        m_run = std::make_unique<Run>(*m_store, defaults);
        QVERIFY(!failToStore(pomo(0min)));
        m_store->kit().center().post(KWNewMinuteComesNotification);
        QCOMPARE(storedCount(), 1);
        m_run.reset();
    }
};

ORVANE_TEST(FocusRecordQueue_test)
#include "FocusRecordQueue_test.moc"
