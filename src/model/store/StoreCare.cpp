#include "model/store/StoreCare.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/NotificationNames.h"
#include "model/store/Connection.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/store/StoreIntegrity.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger careLog{u"backup"};

struct Finding {
    bool isDamaged = false;
    std::optional<StoreBackup> newestGood;
};

void examine(Connection &connection, const StoreBackups &backups, Finding &finding)
{
    const std::optional<QString> damage = damageIn(connection);
    if (!damage) return;
    careLog.error(u"The store is damaged: "_s + *damage);
    finding.isDamaged = true;
    finding.newestGood = backups.newestGood();
}

} // namespace

StoreCare::StoreCare(KWCoreDataManager &manager, KWNotificationCenter &center, const DataFolders &folders)
    : m_manager(manager), m_center(center), m_backups(folders), m_self(std::make_shared<StoreCare *>(this))
{
}

void StoreCare::start(LastRun lastRun)
{
    m_newDay = m_center.addObserver(KWNewDayComesNotification,
                                    [this](const KWNotification &) { perform(Thoroughness::BackUp); });
    perform(lastRun == LastRun::BrokeOff ? Thoroughness::CheckAndBackUp : Thoroughness::BackUp);
}

void StoreCare::perform(Thoroughness thoroughness)
{
    const Day today = m_manager.store().clock().today();
    const bool checksFirst = thoroughness == Thoroughness::CheckAndBackUp;
    if (m_isBusy) m_isDueAgain = true;
    if (m_isBusy || m_isDamaged || (!checksFirst && !m_backups.isDue(today))) return;
    m_isBusy = true;
    const auto finding = std::make_shared<Finding>();
    const auto work = [backups = m_backups, today, checksFirst,
                       finding](ObjectContext &context) -> Result<void> {
        try {
            if (checksFirst) examine(context.connection(), backups, *finding);
            if (finding->isDamaged || !backups.isDue(today)) return {};
            const Result<QString> made = backups.makeDaily(context.connection(), today);
            if (made) return {};
            // What cannot be backed up may be damaged.
            examine(context.connection(), backups, *finding);
            return made.error();
        } catch (const SQLite::Exception &exception) {
            return storeFailure(exception);
        }
    };
    const auto done = [self = std::weak_ptr{m_self}, finding](const Result<void> &result) {
        if (!result) careLog.warning(result.error().sentence);
        if (const auto care = self.lock()) (*care)->didPerform(finding->isDamaged, finding->newestGood);
    };
    KWCoreDataService{m_manager}.async_perform(work, done);
}

void StoreCare::didPerform(bool isDamaged, const std::optional<StoreBackup> &newestGood)
{
    m_isBusy = false;
    m_isDamaged = isDamaged;
    if (isDamaged && onDamage) onDamage(newestGood);
    if (std::exchange(m_isDueAgain, false)) perform(Thoroughness::BackUp);
}
