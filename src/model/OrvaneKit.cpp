#include "model/OrvaneKit.h"

#include "model/settings/ClockFormat.h"
#include "model/store/StoreBackups.h"

#include <QFileInfo>

OrvaneKit::OrvaneKit(const DataFolders &folders, std::unique_ptr<Store> store)
    : m_folders(folders), m_defaults(folders.config), m_store(std::move(store))
{
    ClockFormat::choose(m_defaults.value(Settings::clockFormat));
}

OrvaneKit::Opening OrvaneKit::open(const DataFolders &folders, const CXClock &clock)
{
    // No first start: another store would let the good backups go, one a day.
    if (QFileInfo{folders.store()}.size() == 0 && !StoreBackups{folders}.list().isEmpty())
        return {nullptr, StoreProblem::Lost, Store::sentenceFor(StoreProblem::Lost, folders.store())};
    Store::Opening opening = Store::open(folders.store(), clock);
    if (!opening.store) return {nullptr, opening.problem, opening.sentence};

    std::unique_ptr<OrvaneKit> kit{new OrvaneKit{folders, std::move(opening.store)}};
    Result<std::unique_ptr<KWCoreDataManager>> manager = KWCoreDataManager::make(*kit->m_store, kit->m_bus);
    if (!manager) return {nullptr, StoreProblem::CannotWrite, manager.error().sentence};
    kit->m_manager = std::move(*manager);
    kit->m_tags = std::make_unique<KWTagCache>(*kit->m_manager, kit->m_center);
    kit->m_account = std::make_unique<KWAccountManager>(*kit->m_manager, kit->m_center, kit->m_defaults);
    kit->m_account->onCurrentUserChanged = [kit = kit.get()] {
        kit->m_tags->load(kit->m_account->currentUserID());
    };
    kit->m_account->refreshCurrentUser();
    return {std::move(kit), {}, {}};
}
