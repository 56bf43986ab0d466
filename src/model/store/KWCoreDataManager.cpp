#include "model/store/KWCoreDataManager.h"

#include "model/store/Connection.h"
#include "model/store/Migrations.h"

#include <QMetaObject>
#include <QThread>

namespace {

// What a block made of records that could not be read is nothing to go by.
Result<void> resultOf(const KWCoreDataService::Block &block, ObjectContext &context)
{
    const Result<void> done = block(context);
    const Result<void> read = context.readResult();
    return read ? done : read;
}

} // namespace

Result<std::unique_ptr<KWCoreDataManager>> KWCoreDataManager::make(Store &store, KWEventBus &bus)
{
    Result<std::unique_ptr<ObjectContext>> context = store.makeContext();
    if (!context) return context.error();
    return std::unique_ptr<KWCoreDataManager>{new KWCoreDataManager{store, bus, std::move(*context)}};
}

KWCoreDataManager::KWCoreDataManager(Store &store, KWEventBus &bus,
                                     std::unique_ptr<ObjectContext> mainContext)
    : m_store(store)
    , m_bus(bus)
    , m_mainContext(std::move(mainContext))
    , m_mainThread(std::make_unique<QObject>())
{
    m_threads.setMaxThreadCount(2);
    m_mainContext->onSaved = [this](const StoreChange &change) { m_bus.post(change); };
}

KWCoreDataManager::~KWCoreDataManager()
{
    m_threads.clear();
    m_threads.waitForDone();
}

bool KWCoreDataManager::needsMigration() const
{
    try {
        return m_mainContext->connection().number("PRAGMA user_version") != Migrations::currentVersion();
    } catch (const SQLite::Exception &) {
        return true;
    }
}

void KWCoreDataManager::announceFromBackground(const StoreChange &change)
{
    const auto announce = [this](const StoreChange &saved) {
        m_mainContext->refresh(saved);
        m_bus.post(saved);
    };
    if (QThread::currentThread() == m_mainThread->thread()) {
        announce(change);
        return;
    }
    StoreChange late = change;
    late.isLate = true;
    QMetaObject::invokeMethod(
        m_mainThread.get(), [announce, late = std::move(late)] { announce(late); }, Qt::QueuedConnection);
}

Result<void> KWCoreDataService::sync_save(const Block &block)
{
    Result<Store::Loan> loan = m_manager.store().borrowConnection();
    if (!loan) return loan.error();
    ObjectContext context{loan->take(), m_manager.store().clock()};
    context.onSaved = [this](const StoreChange &change) { m_manager.announceFromBackground(change); };

    // Before the block reads: two processes that both find a tag missing must not both make it.
    Result<void> done = context.beginWriting();
    if (done) done = resultOf(block, context);
    if (done) {
        const Result<StoreChange> saved = context.save();
        if (!saved) done = saved.error();
    }
    m_manager.store().giveBack(context.releaseConnection());
    return done;
}

Result<void> KWCoreDataService::sync_perform(const Block &block)
{
    Result<Store::Loan> loan = m_manager.store().borrowConnection();
    if (!loan) return loan.error();
    ObjectContext context{loan->take(), m_manager.store().clock()};
    const Result<void> done = resultOf(block, context);
    m_manager.store().giveBack(context.releaseConnection());
    return done;
}

void KWCoreDataService::async_perform(Block block, std::function<void(Result<void>)> completion)
{
    runInBackground(&KWCoreDataService::sync_perform, std::move(block), std::move(completion));
}

void KWCoreDataService::async_save(Block block, std::function<void(Result<void>)> completion)
{
    runInBackground(&KWCoreDataService::sync_save, std::move(block), std::move(completion));
}

void KWCoreDataService::runInBackground(Run run, Block block, std::function<void(Result<void>)> completion)
{
    KWCoreDataManager &manager = m_manager;
    manager.threadPool().start([&manager, run, block = std::move(block), completion = std::move(completion)] {
        KWCoreDataService service{manager};
        const Result<void> done = (service.*run)(block);
        QMetaObject::invokeMethod(
            manager.m_mainThread.get(), [completion, done] { completion(done); }, Qt::QueuedConnection);
    });
}
