#include "app/KWSignificantTimeChangeObserver.h"

#include "app/ApplicationName.h"
#include "corvexkit/log/CXLog.h"
#include "model/account/AccountSettings.h"
#include "model/account/KWAccountManager.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TimeZoneAdaptation.h"

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger zoneLog{u"zone"};
}

KWSignificantTimeChangeObserver::KWSignificantTimeChangeObserver(const Collaborators &collaborators)
    : m_with(collaborators)
{
}

void KWSignificantTimeChangeObserver::applicationDidFinishLaunching()
{
    m_observation = m_with.center.addObserver(SystemTimeZoneDidChangeNotification,
                                              [this](const auto &) { systemTimeZoneDidChange(); });
    systemTimeZoneDidChange();
}

std::optional<CXTimeZone> KWSignificantTimeChangeObserver::lastLocalTimeZone() const
{
    return CXTimeZone::named(m_with.defaults.value(Settings::lastLocalTimeZone));
}

std::optional<CXTimeZone> KWSignificantTimeChangeObserver::zoneOfDates() const
{
    const auto unadapted = CXTimeZone::named(m_with.defaults.value(Settings::zoneOfUnadaptedDates));
    return unadapted ? unadapted : lastLocalTimeZone();
}

void KWSignificantTimeChangeObserver::systemTimeZoneDidChange()
{
    if (m_isAdapting) {
        m_isCheckDue = true;
        return;
    }
    const CXTimeZone zone = m_with.clock.zone();
    const std::optional<CXTimeZone> last = zoneOfDates();
    if (!last) return keepZone(zone);

    const Instant now = m_with.clock.now();
    // Offsets, not names: two names with one offset are the same zone to a clock on the wall.
    if (last->offsetAt(now) != zone.offsetAt(now)) return adaptFrom(*last);
    askAboutOptionIfSwitched();
    keepZone(zone);
}

void KWSignificantTimeChangeObserver::adaptFrom(const CXTimeZone &last)
{
    const CXTimeZone zone = m_with.clock.zone();
    zoneLog.info(u"The time zone has changed from %1 to %2."_s.arg(last.identifier(), zone.identifier()));
    m_with.defaults.set(Settings::isSwitchedTimeZoneBeforeLaunch, true);
    m_with.defaults.synchronise();
    m_isAdapting = true;
    const auto changed = std::make_shared<int>(0);
    KWCoreDataService{m_with.manager}.async_save(
        [last, changed](ObjectContext &context) -> Result<void> {
            *changed = adaptDatesToLocalTimeZone(last, context);
            return {};
        },
        [this, last, zone, changed, life = std::weak_ptr{m_life}](const Result<void> &saved) {
            if (!life.expired()) didAdapt(last, zone, saved, *changed);
        });
}

void KWSignificantTimeChangeObserver::didAdapt(const CXTimeZone &last, const CXTimeZone &zone,
                                               const Result<void> &saved, int changed)
{
    m_isAdapting = false;
    keepZone(zone);
    if (!saved) {
        zoneLog.error(saved.error().sentence);
        m_with.defaults.set(Settings::zoneOfUnadaptedDates, last.identifier());
        m_with.defaults.synchronise();
    } else if (changed > 0) {
        askToRestart();
    }
    if (std::exchange(m_isCheckDue, false)) systemTimeZoneDidChange();
    if (!m_isAdapting && onDidAdapt) onDidAdapt();
}

void KWSignificantTimeChangeObserver::askToRestart()
{
    if (std::exchange(m_isAsking, true)) return;
    m_with.alerts.show(
        {KWLocalizedString("Time zone has changed"),
         textWithApplicationName("We detected that your time zone has changed, which may lead to some "
                                 "tasks’ due date being changed. To avoid this issue, %@ needs to restart to "
                                 "make sure all data accommodate the new time zone."),
         {KWLocalizedString("Restart Now")}},
        [&relaunch = m_with.relaunch](int) { relaunch.cx_relunch(); });
}

void KWSignificantTimeChangeObserver::askAboutOptionIfSwitched()
{
    const bool wasSwitched = m_with.defaults.value(Settings::isSwitchedTimeZoneBeforeLaunch);
    m_with.defaults.remove(Settings::isSwitchedTimeZoneBeforeLaunch);
    if (!wasSwitched || !m_with.account.isSignedIn() || m_with.account.userSettings().isTimeZoneOptionEnabled)
        return;
    m_with.alerts.show(
        {KWLocalizedString("Time Zone Change"),
         KWLocalizedString("Detected time zone change. Do you need to enable the Time Zone options? If "
                           "enabled, you can select the time zone when setting time for tasks."),
         {KWLocalizedString("Enable"), KWLocalizedString("Cancel")}},
        [this, life = std::weak_ptr{m_life}](int button) {
            if (button == 0 && !life.expired()) enableTimeZoneOption();
        });
}

void KWSignificantTimeChangeObserver::enableTimeZoneOption()
{
    AccountSettings settings{m_with.manager, m_with.center, m_with.account.currentUserID()};
    if (const Result<void> saved = settings.updateTimeZoneOptionEnable(true); !saved) {
        zoneLog.error(saved.error().sentence);
        return m_with.alerts.tell(KWLocalizedString("The Time Zone options could not be enabled"),
                                  saved.error().sentence);
    }
    m_with.sync.batchSyncIfNeeded();
}

void KWSignificantTimeChangeObserver::keepZone(const CXTimeZone &zone)
{
    m_with.defaults.set(Settings::lastLocalTimeZone, zone.identifier());
    m_with.defaults.remove(Settings::zoneOfUnadaptedDates);
    m_with.defaults.synchronise();
}
