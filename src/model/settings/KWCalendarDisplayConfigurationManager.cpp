#include "model/settings/KWCalendarDisplayConfigurationManager.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/store/KWCoreDataManager.h"

KWCalendarDisplayConfigurationManager::KWCalendarDisplayConfigurationManager(KWCoreDataManager &manager,
                                                                             KWNotificationCenter &center,
                                                                             QString userID)
    : m_manager(manager), m_center(center), m_userID(std::move(userID))
{
}

KWCalendarDisplayConfigurationModel KWCalendarDisplayConfigurationManager::configuration() const
{
    return KWCalendarDisplayConfiguration::ofUser(m_userID, m_manager.MR_defaultContext());
}

Result<void>
KWCalendarDisplayConfigurationManager::save(const KWCalendarDisplayConfigurationModel &configuration)
{
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            if (auto *stored = context.find<KWCalendarDisplayConfiguration>(m_userID)) {
                stored->reviveAs(configuration);
                return {};
            }
            KWCalendarDisplayConfigurationModel fresh = configuration;
            fresh.sid = fresh.userID = m_userID;
            context.insert<KWCalendarDisplayConfiguration>(std::move(fresh));
            return {};
        });
    if (saved) m_center.post(KWCalendarDisplayConfigurationDidChangeNotification);
    return saved;
}

Result<void> KWCalendarDisplayConfigurationManager::setShowsCalendar(bool shows,
                                                                     const QString &subscriptionID)
{
    KWCalendarDisplayConfigurationModel changed = configuration();
    changed.hiddenCalendars.removeAll(subscriptionID);
    if (!shows) changed.hiddenCalendars.append(subscriptionID);
    const Result<void> saved = save(changed);
    if (saved) m_center.post(KWCalSubDisplayStatusDidChangeNotification);
    return saved;
}
