#include "model/store/KWCoreDataManager.h"

#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/KWTaskTicker.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QSemaphore>
#include <QThread>

using namespace Qt::StringLiterals;

class KWCoreDataManager_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_rent;
    QList<StoreChange> m_announced;
    KWEventBus::Registration m_registration;

    KWCoreDataService service() { return KWCoreDataService{m_store->kit().manager()}; }
    KWTask &rent() { return *m_store->context().find<KWTask>(m_rent); }
    Result<void> setTitle(const QString &title);

private Q_SLOTS:
    void init();
    void showsABackgroundSaveBeforeItIsAnnounced();
    void announcesASaveOfTheMainContextOnce();
    void keepsUnsavedChangesOfTheMainContext();
    void savesNothingWhenTheBlockFails();
    void savesNothingWhenItOnlyReads();
    void saysWhyASaveFailedAndLendsTheConnectionAgain();
    void announcesFromAnotherThreadOnTheMainThread();
    void completesOnTheMainThread();
    void handsAnErrorToTheCompletion();
    void dropsWorkWhenTheManagerGoes();
    void savesFromManyThreadsAtOnce();
    void makesWhatManyFindMissingOnce();
    void ticksAndReopens();
    void leavesATaskAsItWasWhenTickingFails();
};

void KWCoreDataManager_test::init()
{
    m_registration.reset();
    m_store = std::make_unique<StoreFixture>();
    m_rent = aTask("Pay rent").savedIn(*m_store);
    rent();
    m_announced.clear();
    m_registration =
        m_store->kit().bus().registerEventBus([this](const StoreChange &change) { m_announced << change; });
}

Result<void> KWCoreDataManager_test::setTitle(const QString &title)
{
    return service().sync_save([&](ObjectContext &context) -> Result<void> {
        context.find<KWTask>(m_rent)->set(&KWTaskModel::title, title);
        return {};
    });
}

void KWCoreDataManager_test::showsABackgroundSaveBeforeItIsAnnounced()
{
    QString seen;
    auto registration =
        m_store->kit().bus().registerEventBus([&](const StoreChange &) { seen = rent()->title; });
    QVERIFY(setTitle(u"Rent"_s));
    KWEventBus::eb_unregister(registration);
    QCOMPARE(seen, u"Rent"_s);
    QCOMPARE(m_announced.size(), 1);
    QCOMPARE(m_announced.first().of(RecordKind::Task).updated, QStringList{m_rent});

    QVERIFY(service().sync_save([&](ObjectContext &context) -> Result<void> {
        context.remove(*context.find<KWTask>(m_rent));
        return {};
    }));
    QCOMPARE(m_store->context().find<KWTask>(m_rent), nullptr);
    QCOMPARE(m_announced.last().of(RecordKind::Task).deleted, QStringList{m_rent});
}

void KWCoreDataManager_test::announcesASaveOfTheMainContextOnce()
{
    rent().set(&KWTaskModel::title, u"Rent"_s);
    QVERIFY(m_announced.isEmpty());
    QVERIFY(m_store->context().save());
    QCoreApplication::processEvents();
    QCOMPARE(m_announced.size(), 1);
}

void KWCoreDataManager_test::keepsUnsavedChangesOfTheMainContext()
{
    rent().set(&KWTaskModel::content, u"By transfer"_s);
    QVERIFY(setTitle(u"Rent"_s));
    QCOMPARE(rent()->title, u"Rent"_s);
    QCOMPARE(rent()->content, u"By transfer"_s);
    QVERIFY(m_store->context().save());
    m_store->reopen();
    QCOMPARE(rent()->title, u"Rent"_s);
    QCOMPARE(rent()->content, u"By transfer"_s);
}

void KWCoreDataManager_test::savesNothingWhenTheBlockFails()
{
    const Result<void> refused = service().sync_save([&](ObjectContext &context) -> Result<void> {
        context.find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Rent"_s);
        return Error{u"Not today."_s};
    });
    QVERIFY(!refused);
    QCOMPARE(refused.error().sentence, u"Not today."_s);
    QVERIFY(m_announced.isEmpty());
    m_store->reopen();
    QCOMPARE(rent()->title, u"Pay rent"_s);
}

void KWCoreDataManager_test::savesNothingWhenItOnlyReads()
{
    QVERIFY(service().sync_perform([&](ObjectContext &context) -> Result<void> {
        context.find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Rent"_s);
        return {};
    }));
    QVERIFY(m_announced.isEmpty());
    QVERIFY(setTitle(u"Other"_s)); // over the same connection
    QCOMPARE(rent()->title, u"Other"_s);
}

void KWCoreDataManager_test::saysWhyASaveFailedAndLendsTheConnectionAgain()
{
    const Result<void> refused = service().sync_save([&](ObjectContext &context) -> Result<void> {
        context.connection().execute("CREATE TEMP TRIGGER refusal BEFORE UPDATE ON tasks "
                                     "WHEN NEW.title = 'Rent' BEGIN SELECT RAISE(ABORT, 'refused'); END");
        context.find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Rent"_s);
        return {};
    });
    QVERIFY(!refused);
    QVERIFY(refused.error().sentence.endsWith(u'.'));
    QVERIFY(m_announced.isEmpty());
    QCOMPARE(rent()->title, u"Pay rent"_s);
    QVERIFY(setTitle(u"Other"_s));
    QCOMPARE(rent()->title, u"Other"_s);
}

void KWCoreDataManager_test::announcesFromAnotherThreadOnTheMainThread()
{
    QThread *announcedOn = nullptr;
    const auto registration = m_store->kit().bus().registerEventBus(
        [&](const StoreChange &) { announcedOn = QThread::currentThread(); });
    std::unique_ptr<QThread> thread{QThread::create([this] { QVERIFY(setTitle(u"Rent"_s)); })};
    thread->start();
    thread->wait();
    QVERIFY(m_announced.isEmpty());
    QCOMPARE(rent()->title, u"Pay rent"_s);
    QTRY_COMPARE(m_announced.size(), 1);
    QCOMPARE(announcedOn, QThread::currentThread());
    QCOMPARE(rent()->title, u"Rent"_s);
}

void KWCoreDataManager_test::completesOnTheMainThread()
{
    QThread *ranOn = nullptr;
    QThread *completedOn = nullptr;
    service().async_perform(
        [&](ObjectContext &context) -> Result<void> {
            ranOn = QThread::currentThread();
            return context.find<KWTask>(m_rent) ? Result<void>{} : Error{u"There is no such task."_s};
        },
        [&](const Result<void> &done) {
            QVERIFY(done);
            completedOn = QThread::currentThread();
        });
    QVERIFY(!completedOn);
    QTRY_COMPARE(completedOn, QThread::currentThread());
    QVERIFY(ranOn != completedOn);
}

void KWCoreDataManager_test::handsAnErrorToTheCompletion()
{
    std::optional<Result<void>> answer;
    service().async_perform([](ObjectContext &) -> Result<void> { return Error{u"Not today."_s}; },
                            [&](const Result<void> &done) { answer = done; });
    QTRY_VERIFY(answer);
    QCOMPARE(answer->error().sentence, u"Not today."_s);
}

void KWCoreDataManager_test::dropsWorkWhenTheManagerGoes()
{
    QSemaphore began;
    QSemaphore mayEnd;
    std::atomic_int ran = 0;
    int completed = 0;
    constexpr int jobs = 8; // more than there are threads
    for (int i = 0; i < jobs; ++i)
        service().async_perform(
            [&](ObjectContext &context) -> Result<void> {
                ++ran;
                began.release();
                mayEnd.acquire();
                return context.find<KWTask>(m_rent) ? Result<void>{} : Error{u"The store is gone."_s};
            },
            [&](const Result<void> &) { ++completed; });
    began.acquire();
    std::unique_ptr<QThread> opener{QThread::create([&] { mayEnd.release(jobs); })};
    opener->start();
    m_store.reset();
    opener->wait();
    QCoreApplication::processEvents();
    QCOMPARE(completed, 0);
    QVERIFY(ran >= 1);
    init();
}

void KWCoreDataManager_test::savesFromManyThreadsAtOnce()
{
    constexpr int each = 20;
    std::atomic_int failures = 0;
    std::vector<std::unique_ptr<QThread>> threads;
    const QString user = m_store->userID();
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back(QThread::create([&] {
            for (int n = 0; n < each; ++n) {
                const Result<void> done = service().sync_save([&](ObjectContext &context) -> Result<void> {
                    KWTaskModel task = aTask("Task").in(KWProject::inboxIDOfUser(user)).model();
                    context.insert<KWTask>(task);
                    return {};
                });
                failures += !done;
            }
        }));
        threads.back()->start();
    }
    for (int n = 0; n < each; ++n)
        failures += !setTitle(u"Rent %1"_s.arg(n));
    for (const auto &thread : threads)
        thread->wait();
    QCOMPARE(failures.load(), 0);
    QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks"), 3 * each + 1);
    QTRY_COMPARE(m_announced.size(), 4 * each);
}

void KWCoreDataManager_test::makesWhatManyFindMissingOnce()
{
    constexpr int names = 25;
    std::atomic_int failures = 0;
    std::vector<std::unique_ptr<QThread>> threads;
    const QString user = m_store->userID();
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&] {
            for (int n = 0; n < names; ++n) {
                const QString name = u"new%1"_s.arg(n);
                failures += !service().sync_save([&](ObjectContext &context) -> Result<void> {
                    KWTag::createNewTagWithName(name, user, TagUniqueness::MayExist, context);
                    if (!KWProject::findProjectNamed(name, user, context))
                        KWProject::createProjectNamed(name, user, context);
                    return {};
                });
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads)
        thread->wait();
    QCOMPARE(failures.load(), 0);
    QCOMPARE(m_store->context().number("SELECT count(*) FROM tags"), names);
    QCOMPARE(m_store->context().number("SELECT count(*) FROM projects WHERE isInbox = 0"), names);
}

void KWCoreDataManager_test::ticksAndReopens()
{
    KWTaskTicker ticker{m_store->kit().manager()};
    QCOMPARE(*ticker.tick(m_rent), KWTaskStatusCompleted);
    QCOMPARE(rent()->completionDate, std::optional{m_store->clock.now()});
    QCOMPARE(*ticker.updateStatus(KWTaskStatusAbandoned, m_rent), KWTaskStatusAbandoned);
    QVERIFY(rent().isAbandoned());
    QCOMPARE(*ticker.tick(m_rent), KWTaskStatusOpen);
    QVERIFY(!rent()->completionDate);
    QCOMPARE(m_announced.size(), 3);
    QCOMPARE(*ticker.updateStatus(KWTaskStatusOpen, m_rent), KWTaskStatusOpen);
    QCOMPARE(m_announced.size(), 3);

    const Result<KWTaskStatus> unknown = ticker.tick(u"no such task"_s);
    QVERIFY(!unknown && unknown.error().sentence.endsWith(u'.'));
    rent().markDelete();
    QVERIFY(m_store->context().save());
    QVERIFY(!ticker.tick(m_rent));
}

void KWCoreDataManager_test::leavesATaskAsItWasWhenTickingFails()
{
    KWTaskTicker ticker{m_store->kit().manager()};
    Connection &connection = m_store->context().connection();
    connection.execute("PRAGMA query_only = 1");
    QVERIFY(!ticker.tick(m_rent));
    QCOMPARE(rent()->status, KWTaskStatusOpen);
    QVERIFY(!rent()->completionDate);
    connection.execute("PRAGMA query_only = 0");
    QVERIFY(ticker.tick(m_rent));
}

ORVANE_TEST(KWCoreDataManager_test)
#include "KWCoreDataManager_test.moc"
