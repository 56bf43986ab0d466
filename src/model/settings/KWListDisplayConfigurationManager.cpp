#include "model/settings/KWListDisplayConfigurationManager.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWUserSettings.h"
#include "model/store/KWCoreDataManager.h"

using namespace Qt::StringLiterals;

namespace {

// A deleted one too: its place is taken.
KWListDisplayConfiguration *storedConfiguration(const QString &listID, const QString &userID,
                                                ObjectContext &context)
{
    const auto found = context.fetch<KWListDisplayConfiguration>(
        {.where = "userID = ? AND listID = ?", .values = {userID, listID}});
    return found.isEmpty() ? nullptr : found.first();
}

} // namespace

KWListDisplayConfigurationManager::KWListDisplayConfigurationManager(KWCoreDataManager &manager,
                                                                     KWNotificationCenter &center,
                                                                     QString userID)
    : m_manager(manager), m_center(center), m_userID(std::move(userID))
{
}

KWListDisplayConfigurationModel
KWListDisplayConfigurationManager::configuration(const KWListIdentifier &list) const
{
    return configuration(list, m_userID, m_manager.MR_defaultContext());
}

KWListDisplayConfigurationModel KWListDisplayConfigurationManager::configuration(const KWListIdentifier &list,
                                                                                 const QString &userID,
                                                                                 ObjectContext &context)
{
    const QString listID = list.userDefaultEncode();
    const KWListDisplayConfiguration *stored = storedConfiguration(listID, userID, context);
    if (stored && stored->isNotDeleted()) return stored->model();
    KWListDisplayConfigurationModel fresh;
    fresh.userID = userID;
    fresh.listID = listID;
    if (const auto *settings = context.find<KWUserSettings>(userID))
        fresh.showsCompleted = (*settings)->showCompleted;
    return fresh;
}

Result<void> KWListDisplayConfigurationManager::save(const KWListDisplayConfigurationModel &configuration)
{
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            if (auto *stored = storedConfiguration(configuration.listID, m_userID, context)) {
                stored->reviveAs(configuration);
                return {};
            }
            KWListDisplayConfigurationModel fresh = configuration;
            fresh.userID = m_userID;
            context.insert<KWListDisplayConfiguration>(std::move(fresh));
            return {};
        });
    if (saved)
        m_center.post(KWListDisplayConfigurationDidChangeNotification, {},
                      {{u"listID"_s, configuration.listID}});
    return saved;
}
