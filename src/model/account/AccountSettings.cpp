#include "model/account/AccountSettings.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWUserSettings.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskPermissions.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int minutesOfDay = 24 * 60;

// What is wrong with a change of the settings; nothing about what it leaves as it was.
Result<void> checked(const KWUserSettingsModel &before, const KWUserSettingsModel &after,
                     ObjectContext &context)
{
    if (after.firstWeekday < 1 || after.firstWeekday > 7)
        return Error{storeText("A week begins on one of its seven days.")};
    if (after.habitDayStart < 0 || after.habitDayStart > KWUserSettings::latestHabitDayStart)
        return Error{storeText("A day of habits begins between midnight and six.")};
    for (const int each : {after.smartTimeForMorning, after.smartTimeForAfternoon, after.smartTimeForEvening,
                           after.smartTimeForNight})
        if (each < 0 || each >= minutesOfDay) return Error{storeText("There is no such time of day.")};
    if (after.defaultListID == before.defaultListID || after.defaultListID.isEmpty()) return {};
    if (!mayTakeTasks(context.find<KWProject>(after.defaultListID)))
        return Error{storeText("New tasks cannot go to a list that is closed, gone or not to be changed.")};
    return {};
}

// Where they go, what reminds of them, and what the words of their titles mean.
bool givesNewTasksTheSame(const KWUserSettingsModel &one, const KWUserSettingsModel &other)
{
    const auto decisive = [](const KWUserSettingsModel &settings) {
        return std::tie(settings.defaultListID, settings.defaultReminderRules, settings.allDayReminders,
                        settings.firstWeekday, settings.smartTimeForMorning, settings.smartTimeForAfternoon,
                        settings.smartTimeForEvening, settings.smartTimeForNight,
                        settings.isTimeZoneOptionEnabled);
    };
    return decisive(one) == decisive(other);
}

// Where and when they are shown.
bool showsHabitsTheSame(const KWUserSettingsModel &one, const KWUserSettingsModel &other)
{
    return one.showsInToday == other.showsInToday && one.showsInCalendar == other.showsInCalendar &&
           one.habitDayStart == other.habitDayStart;
}

} // namespace

AccountSettings::AccountSettings(KWCoreDataManager &manager, KWNotificationCenter &center, QString userID)
    : m_manager(manager), m_center(center), m_userID(std::move(userID))
{
}

Result<void> AccountSettings::change(const std::function<void(KWUserSettingsModel &)> &edit)
{
    bool newTasksAreTheSame = true;
    bool habitsAreTheSame = true;
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWUserSettings *settings = context.find<KWUserSettings>(m_userID);
            if (!settings) return Error{storeText("There is no such account any more.")};
            KWUserSettingsModel edited = settings->model();
            edit(edited);
            newTasksAreTheSame = givesNewTasksTheSame(settings->model(), edited);
            habitsAreTheSame = showsHabitsTheSame(settings->model(), edited);
            const Result<void> sound = checked(settings->model(), edited, context);
            if (sound) settings->assign(edited);
            return sound;
        });
    if (!saved) return saved;
    m_center.post(KWUserSettingsDidChangeNotification);
    if (!newTasksAreTheSame) m_center.post(KWTaskDefaultConfigurationChangedNotification);
    if (!habitsAreTheSame) m_center.post(KWHabitSettingsChangedNotification);
    return saved;
}

Result<void> AccountSettings::updateTimeZoneOptionEnable(bool isEnabled)
{
    return change(
        [isEnabled](KWUserSettingsModel &settings) { settings.isTimeZoneOptionEnabled = isEnabled; });
}

Result<void> AccountSettings::setSortType(KWTaskSortType sortType, const KWSmartProject &smartProject)
{
    const QString id = smartProject.identifier();
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWSmartProject::updateSortType(sortType, id, m_userID, context);
            return {};
        });
    if (saved)
        m_center.post(KWListDisplayConfigurationDidChangeNotification, {},
                      {{u"listID"_s, KWListIdentifier::smartProject(id).userDefaultEncode()}});
    return saved;
}

Result<void> AccountSettings::setVisibility(KWSmartProjectVisibility visibility,
                                            const KWSmartProject &smartProject)
{
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWSmartProject::updateVisibility(visibility, smartProject.identifier(), m_userID, context);
            return {};
        });
    if (saved) m_center.post(KWSmartListDisplayStatusDidChangeNotification);
    return saved;
}
