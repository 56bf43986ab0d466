#include "model/store/KWCoreDataManager.h"

#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QSemaphore>
#include <QThread>

#include <thread>

using namespace Qt::StringLiterals;

class KWCoreDataManager_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_rent;
    QList<StoreChange> m_announced;
    KWEventBus::Registration m_registration;

    KWCoreDataService service() { return KWCoreDataService{m_store->kit().manager()}; }
    KWTask &rent() { return *m_store->context().find<KWTask>(m_rent); }

    Result<void> save(const std::function<void(ObjectContext &)> &block)
    {
        return service().sync_save([&block](ObjectContext &context) -> Result<void> {
            block(context);
            return {};
        });
    }

    Result<void> setTitle(const QString &title)
    {
        return save(
            [&](ObjectContext &context) { context.find<KWTask>(m_rent)->set(&KWTaskModel::title, title); });
    }

private Q_SLOTS:
    void init()
    {
        m_registration.reset();
        m_store = std::make_unique<StoreFixture>();
        m_rent = aTask("Pay rent").savedIn(*m_store);
        rent();
        m_announced.clear();
        m_registration = m_store->kit().bus().registerEventBus([this](const StoreChange &change) {
            QCOMPARE(QThread::currentThread(), thread());
            m_announced << change;
        });
    }

    void showsASaveBeforeItIsAnnouncedAndKeepsUnsavedChanges()
    {
        const auto text = [this] { return rent()->title + u": "_s + rent()->content; };
        QString seen;
        const auto registration =
            m_store->kit().bus().registerEventBus([&](const StoreChange &) { seen = text(); });
        rent().set(&KWTaskModel::content, u"By transfer"_s);
        QVERIFY(setTitle(u"Rent"_s));
        QCOMPARE(seen, u"Rent: By transfer"_s);
        QCOMPARE(m_announced.first().of(RecordKind::Task).updated, QStringList{m_rent});
        QVERIFY(m_store->context().save());
        QCoreApplication::processEvents();
        QCOMPARE(m_announced.size(), 2); // each save once
        m_store->reopen();
        QCOMPARE(text(), u"Rent: By transfer"_s);
    }

    void savesNothingOfWhatFails()
    {
        const auto edit = [this](ObjectContext &context) {
            context.find<KWTask>(m_rent)->set(&KWTaskModel::title, u"Rent"_s);
            return Result<void>{};
        };
        const std::initializer_list<KWCoreDataService::Block> failures{
            [&](ObjectContext &context) -> Result<void> {
                if (!edit(context)) return {};
                return Error{u"Not today."_s};
            },
            [&](ObjectContext &context) { // what was read is not what is there
                const bool isKnown = !context.models<KWTask>({.where = "titel = 'Pay rent'"}).isEmpty();
                if (!isKnown) context.insert<KWTask>(aTask("Pay rent").model());
                return Result<void>{};
            },
            [&](ObjectContext &context) {
                context.connection().execute("CREATE TEMP TRIGGER refusal BEFORE UPDATE ON tasks "
                                             "WHEN NEW.title = 'Rent' BEGIN SELECT RAISE(ABORT, 'no'); END");
                return edit(context);
            }};
        for (const auto &each : failures) {
            QVERIFY(isRefused(service().sync_save(each)));
            QVERIFY(setTitle(u"Pay rent %1"_s.arg(m_announced.size()))); // over the same connection
        }
        QVERIFY(!service().sync_perform(failures.begin()[1]) && service().sync_perform(edit)); // only reads
        QCOMPARE(m_announced.size(), qsizetype(failures.size()));
        QCOMPARE(rent()->title, u"Pay rent 2"_s);
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks"), 1);
    }

    void completesOnTheMainThread()
    {
        QThread *completedOn = nullptr;
        service().async_perform(
            [this](ObjectContext &) -> Result<void> {
                return Error{QThread::currentThread() == thread() ? u"Main thread."_s : u"Not today."_s};
            },
            [&](const Result<void> &done) {
                QVERIFY(isRefused(done, u"Not today."));
                completedOn = QThread::currentThread();
            });
        QTRY_COMPARE(completedOn, thread());
    }

    void dropsWorkWhenTheManagerGoes()
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
        const std::jthread opener{[&] { mayEnd.release(jobs); }};
        m_store.reset();
        QCoreApplication::processEvents();
        QCOMPARE(completed, 0);
        QVERIFY(ran >= 1);
        init();
    }

    // Tags and lists that are missing are made once, tasks every time.
    void savesFromManyThreadsAtOnce()
    {
        constexpr int each = 20;
        std::atomic_int failures = 0;
        std::vector<std::jthread> threads;
        const QString user = m_store->userID();
        const auto saveNumber = [&](int number) {
            const QString name = u"new%1"_s.arg(number);
            failures += !save([&](ObjectContext &context) {
                context.insert<KWTask>(aTask("Task").in(KWProject::inboxIDOfUser(user)).model());
                for (const QString &typed : {name, name.toUpper()})
                    KWTag::createNewTagWithName(typed, user, TagUniqueness::MayExist, context);
                if (!KWProject::findProjectNamed(name, user, context))
                    KWProject::createProjectNamed(name, user, context);
            });
        };
        for (int i = 0; i < 3; ++i)
            threads.emplace_back([&] {
                for (int n = 0; n < each; ++n)
                    saveNumber(n);
            });
        for (int n = 0; n < each; ++n)
            failures += !setTitle(u"Rent %1"_s.arg(n));
        threads.clear(); // joins them
        QCOMPARE(failures.load(), 0);
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tasks"), 3 * each + 1);
        QCOMPARE(m_store->context().number("SELECT count(*) FROM tags"), each);
        QCOMPARE(m_store->context().number("SELECT count(*) FROM projects WHERE isInbox = 0"), each);
        QTRY_COMPARE(m_announced.size(), 4 * each);
        QCOMPARE(std::ranges::count(m_announced, true, &StoreChange::isLate), 3 * each);
    }
};

ORVANE_TEST(KWCoreDataManager_test)
#include "KWCoreDataManager_test.moc"
