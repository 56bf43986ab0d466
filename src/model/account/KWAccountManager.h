#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/records/KWUserModel.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "model/store/KWCoreDataManager.h"

#include <QLocale>

#include <functional>
#include <optional>

class KWUser;
class KWUserDefaults;
class KWUserSettings;

/// Who is signed in, and the settings of that account. A local account lives on this computer only: it
/// needs no network and no password. Main thread.
class KWAccountManager {
public:
    KWAccountManager(KWCoreDataManager &manager, KWNotificationCenter &center, KWUserDefaults &defaults);

    /// Reads from the store who is signed in.
    void refreshCurrentUser();
    /// Called when it is another user than before, or nobody any more.
    std::function<void()> onCurrentUserChanged;
    bool isSignedIn() const { return m_currentUser.has_value(); }
    const std::optional<KWUserModel> &currentUser() const { return m_currentUser; }
    /// Empty when nobody is signed in.
    QString currentUserID() const { return m_currentUser ? m_currentUser->sid : QString{}; }

    /// Signs the local account in; makes it the first time, with its inbox, and with the first weekday
    /// of `locale`. Posts "KWUserDidSignInNotification".
    Result<void> signInLocally(const QLocale &locale);
    /// What a new account begins with, saved with it or not at all.
    using FirstContent = std::function<Result<void>(const QString &userID, ObjectContext &context)>;
    /// The same, announced to nobody, for commands without a window. An account that is made for it has
    /// `content` from the start; one that exists is left as it is.
    Result<void> openLocalAccount(const QLocale &locale, const FirstContent &content = {});
    /// Takes the local account as the current one of this process alone, signed in or not; whether there is
    /// one.
    bool workWithLocalAccount();
    /// Keeps everything stored; posts "KWUserDidSignOutNotification".
    Result<void> signOut();

    /// The settings of the signed-in user; default values when nobody is.
    const KWUserSettingsModel &userSettings() const;
    /// Where a new task goes when nothing else decides: the chosen list while it exists, is open and may
    /// be written, else the inbox.
    QString defaultAddtoList() const;
    /// Lets new tasks go to the inbox for good when the chosen list is gone or closed.
    void resetDefaultAddToListIfNeeded();
    KWTaskDefaultConfiguration taskDefaultConfiguration() const;
    std::set<CXAlarmTrigger> defaultReminderRules() const { return taskDefaultConfiguration().reminders; }
    std::set<CXAlarmTrigger> defaultReminderRulesForAllDay() const
    {
        return taskDefaultConfiguration().allDayReminders;
    }

private:
    void takeAsCurrent(const KWUser *user);

    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    KWUserDefaults &m_defaults;
    std::optional<KWUserModel> m_currentUser;
    KWUserSettings *m_settings = nullptr; // lives in the main context
};
