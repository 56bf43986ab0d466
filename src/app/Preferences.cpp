#include "app/Preferences.h"

#include "model/account/AccountSettings.h"
#include "model/account/KWAccountManager.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/ClockFormat.h"

#include <string_view>

Preferences::Preferences(KWCoreDataManager &manager, KWAccountManager &account, KWUserDefaults &defaults,
                         KWNotificationCenter &center)
    : m_manager(manager), m_account(account), m_defaults(defaults), m_center(center)
{
}

const KWUserSettingsModel &Preferences::settings() const { return m_account.userSettings(); }

Result<void> Preferences::editSettings(const std::function<void(KWUserSettingsModel &)> &edit)
{
    return AccountSettings{m_manager, m_center, m_account.currentUserID()}.change(edit);
}

void Preferences::didSetDefault(const char *key)
{
    const std::string_view name{key};
    if (name == Settings::newTaskPriority.key || name == Settings::newTaskDateOffset.key)
        m_center.post(KWTaskDefaultConfigurationChangedNotification);
    if (name != Settings::clockFormat.key) return;
    ClockFormat::choose(value(Settings::clockFormat));
    m_center.post(KWUserSettingsDidChangeNotification);
}

KWSmartRecognitionConfiguration Preferences::recognition() const
{
    return KWSmartRecognitionConfiguration::ofUser(m_account.currentUserID(), m_defaults);
}

Result<void> Preferences::set(bool KWSmartRecognitionConfiguration::*field, bool isOn)
{
    const KWSmartRecognitionConfiguration before = recognition();
    KWSmartRecognitionConfiguration changed = before;
    changed.*field = isOn;
    changed.save(m_account.currentUserID(), m_defaults, m_center);
    const Result<void> saved = m_defaults.save();
    if (!saved) before.save(m_account.currentUserID(), m_defaults, m_center);
    return saved;
}

KWSmartProjectVisibility Preferences::visibilityOf(const KWSmartProject &smart) const
{
    return smart.visibilityOfUser(m_account.currentUserID(), m_manager.MR_defaultContext());
}

Result<void> Preferences::setVisibility(KWSmartProjectVisibility visibility, const KWSmartProject &smart)
{
    return AccountSettings{m_manager, m_center, m_account.currentUserID()}.setVisibility(visibility, smart);
}

QList<Preferences::NamedList> Preferences::listsForNewTasks() const
{
    QList<NamedList> lists;
    const QList<KWProject *> projects = KWProject::findProjectsOfUser(
        m_account.currentUserID(), ProjectScope::Open, m_manager.MR_defaultContext());
    for (const KWProject *each : projects)
        if (each->isInbox())
            lists.prepend({each->sid(), KWSmartProject::inbox().displayName()});
        else if (each->isWritable())
            lists.append({each->sid(), each->model().name});
    return lists;
}
