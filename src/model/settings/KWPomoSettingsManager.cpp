#include "model/settings/KWPomoSettingsManager.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWPomoSettings.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger pomoSettingsLog{u"pomo settings"};

struct Range {
    int KWPomoSettingsModel::*number;
    const char *name;
    int lowest;
    int highest;

    bool contains(const KWPomoSettingsModel &settings) const
    {
        return settings.*number >= lowest && settings.*number <= highest;
    }
};

constexpr Range ranges[] = {
    {&KWPomoSettingsModel::pomoDuration, "pomoDuration", 5, MAX_POMO_DURATION_MINUTES},
    {&KWPomoSettingsModel::shortBreakDuration, "shortBreakDuration", 1, 60},
    {&KWPomoSettingsModel::longBreakDuration, "longBreakDuration", 1, 60},
    {&KWPomoSettingsModel::longBreakInterval, "longBreakInterval", 1, 60},
    {&KWPomoSettingsModel::autoPomodoroCycle, "autoPomodoroCycle", 2, 10},
    {&KWPomoSettingsModel::dailyPomoGoal, "dailyPomoGoal", 0, 20},
    {&KWPomoSettingsModel::dailyFocusGoal, "dailyFocusGoal", 0, 2 * 24 * 60},
};

} // namespace

KWPomoSettingsManager::KWPomoSettingsManager(KWCoreDataManager &manager, KWNotificationCenter &center,
                                             QString userID)
    : m_manager(manager), m_center(center), m_userID(std::move(userID))
{
}

KWPomoSettingsModel KWPomoSettingsManager::settings() const
{
    const KWPomoSettings *stored = m_manager.MR_defaultContext().find<KWPomoSettings>(m_userID);
    const KWPomoSettingsModel fresh;
    if (!stored || stored->isDeleted()) return fresh;
    KWPomoSettingsModel settings = stored->model();
    for (const Range &each : ranges) {
        if (each.contains(settings)) continue;
        pomoSettingsLog.warning(
            u"%1 cannot be %2"_s.arg(QLatin1String{each.name}).arg(settings.*each.number));
        settings.*each.number = fresh.*each.number;
    }
    return settings;
}

Result<void> KWPomoSettingsManager::save(const KWPomoSettingsModel &settings)
{
    for (const Range &each : ranges)
        if (!each.contains(settings)) return Error{storeText("A focus setting is out of its range.")};
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            if (KWPomoSettings *stored = context.find<KWPomoSettings>(m_userID)) {
                stored->reviveAs(settings);
                return {};
            }
            KWPomoSettingsModel fresh = settings;
            fresh.sid = fresh.userID = m_userID;
            context.insert<KWPomoSettings>(std::move(fresh));
            return {};
        });
    if (saved) m_center.post(KWPomoSettingsChangedNotification);
    return saved;
}
