#include "habits/HabitDayWatch.h"

#include "corvexkit/log/CXLog.h"
#include "habits/HabitEditor.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWHabit.h"
#include "model/records/KWUserSettings.h"

namespace {

constexpr CXLogger habitLog{u"habits"};

} // namespace

HabitDayWatch::HabitDayWatch(OrvaneKit &kit) : m_kit(kit)
{
    const auto on = [this](const QString &name, void (HabitDayWatch::*reaction)()) {
        m_observations.push_back(
            m_kit.center().addObserver(name, [this, reaction](const auto &) { (this->*reaction)(); }));
    };
    for (const QString &each : {KWNewHourComesNotification, KWNewDayComesNotification,
                                SystemTimeZoneDidChangeNotification, KWHabitSettingsChangedNotification})
        on(each, &HabitDayWatch::checkDay);
    // Other weeks, or days from elsewhere.
    for (const QString &each : {KWUserSettingsDidChangeNotification, KWSyncDidPullHabitsNotification,
                                KWDataDidChangeOutsideMainAppNotification})
        on(each, &HabitDayWatch::updateStreaks);
}

void HabitDayWatch::dailyCheck()
{
    if (!m_kit.account().isSignedIn()) return;
    if (const auto made = HabitEditor{m_kit.manager(), m_kit.account().currentUserID()}.makeDefaultSections();
        !made)
        habitLog.warning(made.error().sentence);
    m_day.reset();
    checkDay();
}

void HabitDayWatch::checkDay()
{
    if (!m_kit.account().isSignedIn()) return;
    const Day day = KWUserSettings::habitDayOfUser(m_kit.account().currentUserID(), m_kit.context());
    if (m_day == day) return;
    m_day = day;
    updateStreaks();
    m_kit.center().post(KWNewHabitDayComesNotification);
}

void HabitDayWatch::updateStreaks()
{
    if (!m_kit.account().isSignedIn()) return;
    const auto block = [userID = m_kit.account().currentUserID()](ObjectContext &context) -> Result<void> {
        for (KWHabit *each : KWHabit::fetchAll(userID, HabitScope::Active, context))
            each->updateStreaks();
        return {};
    };
    KWCoreDataService{m_kit.manager()}.async_save(block, [](const Result<void> &saved) {
        if (!saved) habitLog.warning(saved.error().sentence);
    });
}
