#include "model/account/KWAccountManager.h"

#include "corvexkit/log/CXLog.h"
#include "model/account/AccountSettings.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWUser.h"
#include "model/records/KWUserSettings.h"
#include "model/store/TaskPermissions.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger accountLog{u"account"};

// Qt counts Monday 1 … Sunday 7, the settings Sunday 1 … Saturday 7.
int firstWeekdayOf(const QLocale &locale) { return int(locale.firstDayOfWeek()) % 7 + 1; }

KWUser *findLocalAccount(ObjectContext &context)
{
    const QList<KWUser *> found =
        context.fetch<KWUser>({.where = "userServerID = 0 AND isDeleted = 0", .limit = 1});
    return found.isEmpty() ? nullptr : found.first();
}

KWUser &makeLocalAccount(ObjectContext &context, const QLocale &locale)
{
    KWUserModel user;
    user.sid = newRecordIdentifier(context.clock().now());
    user.userID = user.sid;
    KWUser &account = context.insert<KWUser>(std::move(user));

    KWUserSettingsModel settings;
    settings.sid = settings.userID = account.userID();
    settings.firstWeekday = firstWeekdayOf(locale);
    context.insert<KWUserSettings>(std::move(settings));

    KWProjectModel inbox;
    inbox.sid = KWProject::inboxIDOfUser(account.userID());
    inbox.userID = account.userID();
    inbox.name = KWSmartProject::inbox().displayName();
    inbox.isInbox = true;
    context.insert<KWProject>(std::move(inbox));
    return account;
}

} // namespace

KWAccountManager::KWAccountManager(KWCoreDataManager &manager, KWNotificationCenter &center,
                                   KWUserDefaults &defaults)
    : m_manager(manager), m_center(center), m_defaults(defaults)
{
}

void KWAccountManager::refreshCurrentUser()
{
    const QList<KWUser *> signedIn = m_manager.MR_defaultContext().fetch<KWUser>(
        {.where = "isSignedIn = 1 AND isDeleted = 0", .limit = 1});
    takeAsCurrent(signedIn.isEmpty() ? nullptr : signedIn.first());
}

void KWAccountManager::takeAsCurrent(const KWUser *user)
{
    const QString before = currentUserID();
    m_currentUser = user ? std::optional{user->model()} : std::nullopt;
    m_settings = user ? m_manager.MR_defaultContext().find<KWUserSettings>(user->sid()) : nullptr;
    if (currentUserID() != before && onCurrentUserChanged) onCurrentUserChanged();
}

bool KWAccountManager::workWithLocalAccount()
{
    takeAsCurrent(findLocalAccount(m_manager.MR_defaultContext()));
    return isSignedIn();
}

Result<void> KWAccountManager::openLocalAccount(const QLocale &locale, const FirstContent &content)
{
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWUser *existing = findLocalAccount(context);
            KWUser &account = existing ? *existing : makeLocalAccount(context, locale);
            account.set(&KWUserModel::isSignedIn, true);
            return !existing && content ? content(account.userID(), context) : Result<void>{};
        });
    if (saved) refreshCurrentUser();
    return saved;
}

Result<void> KWAccountManager::signInLocally(const QLocale &locale)
{
    const Result<void> opened = openLocalAccount(locale);
    if (opened) m_center.post(KWUserDidSignInNotification);
    return opened;
}

Result<void> KWAccountManager::signOut()
{
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([](ObjectContext &context) -> Result<void> {
            for (KWUser *each : context.fetch<KWUser>({.where = "isSignedIn = 1"}))
                each->set(&KWUserModel::isSignedIn, false);
            return {};
        });
    if (!saved) return saved;
    refreshCurrentUser();
    m_center.post(KWUserDidSignOutNotification);
    return saved;
}

const KWUserSettingsModel &KWAccountManager::userSettings() const
{
    static const KWUserSettingsModel nobody;
    return m_settings ? m_settings->model() : nobody;
}

QString KWAccountManager::defaultAddtoList() const
{
    const KWProject *chosen = m_manager.MR_defaultContext().find<KWProject>(userSettings().defaultListID);
    return mayTakeTasks(chosen) ? chosen->sid() : KWProject::inboxIDOfUser(currentUserID());
}

void KWAccountManager::resetDefaultAddToListIfNeeded()
{
    const QString chosen = userSettings().defaultListID;
    if (chosen.isEmpty() || mayTakeTasks(m_manager.MR_defaultContext().find<KWProject>(chosen))) return;
    const auto reset = AccountSettings{m_manager, m_center, currentUserID()}.change(
        [](KWUserSettingsModel &settings) { settings.defaultListID.clear(); });
    if (!reset) accountLog.error(reset.error().sentence);
}

KWTaskDefaultConfiguration KWAccountManager::taskDefaultConfiguration() const
{
    return KWTaskDefaultConfigurationManager::current(m_defaults, userSettings());
}
