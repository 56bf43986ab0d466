#pragma once

#include "app/LaunchRequest.h"
#include "app/ports/LaunchPorts.h"
#include "app/ports/UserNotificationPorts.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/store/KWReminderService.h"

#include <QHash>

#include <vector>

class KWAccountManager;
class KWCoreDataManager;
class KWUserDefaults;

/// Reminds of tasks, checklist items and habits while somebody is signed in. It waits for the next alert with
/// one call of the clock, looks again whenever records, clock, zone or account change, shows what is due, and
/// then marks it as delivered: across restarts every alert comes once, and a crash between the two repeats
/// it at worst. What is late, because the computer slept or the program was closed, comes as one message
/// when there is more than one. Switched off in the preferences, alerts pass unsaid. docs/reminders.md has
/// the rules. Main thread.
class KWUserNotificationHandler final : public UserNotificationsPort {
public:
    /// An alert later than this has been missed.
    static constexpr std::chrono::milliseconds punctual{60'000};
    /// When the delivery could not be saved, it is tried again after this.
    static constexpr std::chrono::milliseconds retryAfter{60'000};

    struct Collaborators {
        CXClock &clock;
        KWCoreDataManager &manager;
        KWAccountManager &account;
        KWUserDefaults &defaults;
        KWNotificationCenter &center;
        KWEventBus &bus;
        UserNotificationCenterPort &notifications;
        /// Shows the window, and the task of the link.
        std::function<void(const LaunchRequest &)> open;
        /// Whether a task is about to be deleted.
        std::function<bool(const QString &taskID)> isPendingDelete = [](const QString &) { return false; };
        /// Whether dates are just being adapted to another zone: until then no alert can be trusted, and
        /// checkReminders() does nothing. Whoever adapts them calls it afterwards.
        std::function<bool()> isAdaptingDates = [] { return false; };
    };
    explicit KWUserNotificationHandler(Collaborators collaborators);

    /// Reminds from now on.
    void applicationDidFinishLaunching() override;
    /// Shows what is due and waits for what comes next.
    void checkReminders();
    /// Takes every message back, for nobody would hear what is pressed on it; those that were not answered
    /// are due again, for the next start. Reminds no more.
    void applicationWillTerminate();

private:
    void planAndCheckSoon();
    void userDidSignOut();
    void checkSoon();
    void present(const QList<DueReminder> &due);
    void show(UserNotification notification, const QList<DueReminder> &reminders);
    void withdrawAll();
    void waitForNext();
    void withdrawStale();
    bool isStale(const DueReminder &shown) const;
    void respond(const UserNotificationCenterPort::Response &response);
    Result<void> act(const ReminderSubject &subject, const QString &action);
    Result<void> complete(const ReminderSubject &subject);
    Result<void> finishHabit(const QString &habitID);
    std::optional<Instant> snoozedUntil(const QString &action) const;

    Collaborators m_with;
    KWReminderService m_reminders;
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
    ClockCall m_next;
    ClockCall m_soon;
    ClockCall m_retry;
    bool m_isPlanDue = false;                   // records may lack their alerts
    QHash<QString, Instant> m_delivered;        // by identifier: shown, but not saved as delivered yet
    QHash<QString, QList<DueReminder>> m_shown; // by identifier: what the message is about
};
