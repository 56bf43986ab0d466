#include "model/account/KWPublicUserProfileManager.h"

#include "model/records/KWTeammate.h"
#include "model/records/KWTeamworker.h"
#include "model/records/KWUser.h"

KWPublicUserProfileManager::KWPublicUserProfileManager(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
    m_registration = manager.bus().registerEventBus([this](const StoreChange &change) {
        for (const RecordKind each : {RecordKind::Teammate, RecordKind::Teamworker, RecordKind::User})
            if (change.touches(each)) m_profiles.reset();
    });
}

std::optional<PublicUserProfile> KWPublicUserProfileManager::profile(std::int64_t userServerID)
{
    if (!m_profiles) read();
    const auto found = m_profiles->constFind(userServerID);
    return found == m_profiles->constEnd() ? std::nullopt : std::optional{*found};
}

void KWPublicUserProfileManager::read()
{
    ObjectContext &context = m_manager.MR_defaultContext();
    m_profiles.emplace();
    const auto take = [this](const auto &people) {
        for (const auto &each : people)
            m_profiles->insert(each.userServerID, {each.name, each.avatar});
    };
    const SqlCondition theirs{.where = "userID = ? AND isDeleted = 0", .values = {m_userID}};
    take(context.models<KWTeammate>(theirs));
    take(context.models<KWTeamworker>(theirs));
    take(context.models<KWUser>({.where = "sid = ?", .values = {m_userID}}));
}
