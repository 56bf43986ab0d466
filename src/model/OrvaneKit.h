#pragma once

#include "model/account/KWAccountManager.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/settings/DataFolders.h"
#include "model/settings/KWUserDefaults.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTagCache.h"
#include "model/store/Store.h"

#include <memory>

/// The core library put together for one data folder: the store and what belongs to it. Whoever needs a
/// part takes that part by reference. Main thread.
class OrvaneKit {
public:
    struct Opening {
        std::unique_ptr<OrvaneKit> kit; ///< none when there is a problem
        StoreProblem problem{};
        QString sentence;
    };

    /// Opens the folder, makes what is missing and reads who is signed in.
    static Opening open(const DataFolders &folders, const CXClock &clock);

    const DataFolders &folders() const { return m_folders; }
    const CXClock &clock() const { return m_store->clock(); }
    KWUserDefaults &defaults() { return m_defaults; }
    KWNotificationCenter &center() { return m_center; }
    KWEventBus &bus() { return m_bus; }
    Store &store() { return *m_store; }
    KWCoreDataManager &manager() { return *m_manager; }
    KWAccountManager &account() { return *m_account; }
    /// Of the user who is signed in.
    const KWTagCache &tags() const { return *m_tags; }
    ObjectContext &context() { return m_manager->MR_defaultContext(); }

private:
    OrvaneKit(const DataFolders &folders, std::unique_ptr<Store> store);

    DataFolders m_folders;
    KWUserDefaults m_defaults;
    KWNotificationCenter m_center;
    KWEventBus m_bus;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<KWCoreDataManager> m_manager;
    std::unique_ptr<KWTagCache> m_tags;
    std::unique_ptr<KWAccountManager> m_account;
};
