#pragma once

#include "model/events/KWEventBus.h"
#include "model/store/Store.h"

#include <QThreadPool>

#include <functional>
#include <type_traits>

/// The store as the client works with it: the main context, background work, and the announcement of
/// every save. Main thread, but for the blocks of KWCoreDataService.
class KWCoreDataManager {
public:
    /// The store must outlive it.
    static Result<std::unique_ptr<KWCoreDataManager>> make(Store &store, KWEventBus &bus);
    /// Waits for the background work that has begun; what has not begun is dropped.
    ~KWCoreDataManager();

    ObjectContext &MR_defaultContext() { return *m_mainContext; }
    Store &store() { return m_store; }
    KWEventBus &bus() { return m_bus; }

    /// A later program has given the file another schema than this one reads, or the file cannot be read.
    bool needsMigration() const;

    /// Reads again what another process has written.
    void refreshAll() { m_mainContext->refreshAll(); }

    /// The main context shows what a background context has saved, then the event bus tells.
    void announceFromBackground(const StoreChange &change);
    QThreadPool &threadPool() { return m_threads; }

private:
    KWCoreDataManager(Store &store, KWEventBus &bus, std::unique_ptr<ObjectContext> mainContext);

    Store &m_store;
    KWEventBus &m_bus;
    std::unique_ptr<ObjectContext> m_mainContext;
    QThreadPool m_threads;
    std::unique_ptr<QObject> m_mainThread; // receives what background work hands back
    friend class KWCoreDataService;
};

/// Lends background contexts to blocks. The records of such a context stay inside the block; hand out
/// value twins or ids.
class KWCoreDataService {
public:
    using Block = std::function<Result<void>(ObjectContext &)>;

    explicit KWCoreDataService(KWCoreDataManager &manager) : m_manager(manager) {}

    /// Runs the block on the calling thread and saves what it changed, all or nothing. Nobody else writes
    /// from the block's first read to the save, so a block saves through its own context only. A block
    /// that answers an error, or in which something could not be read, saves nothing, and the error is the
    /// answer. The change is announced before it returns on the main thread, and soon after on any other.
    Result<void> sync_save(const Block &block);
    /// Runs the block on the calling thread; nothing is saved.
    Result<void> sync_perform(const Block &block);
    /// Runs the block on a thread of its own and then `completion` on the main thread; neither when the
    /// manager goes first.
    void async_perform(Block block, std::function<void(Result<void>)> completion);
    /// The same, and saves as sync_save() does: the change is announced before `completion` is called.
    void async_save(Block block, std::function<void(Result<void>)> completion);

private:
    using Run = Result<void> (KWCoreDataService::*)(const Block &);
    void runInBackground(Run run, Block block, std::function<void(Result<void>)> completion);

    KWCoreDataManager &m_manager;
};
