#include "app/KWUserNotificationHandler.h"

#include "app/ReminderText.h"
#include "corvexkit/log/CXLog.h"
#include "model/account/KWAccountManager.h"
#include "model/events/NotificationNames.h"
#include "model/records/DayStamp.h"
#include "model/records/KWUserSettings.h"
#include "model/settings/KWUserDefaults.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWHabitUtils.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/KWTaskTicker.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr CXLogger notificationLog{u"reminders"};

QString linkTo(const ReminderSubject &subject)
{
    return subject.isHabit() ? u"orvane://habit/"_s + subject.habitID : u"orvane://task/"_s + subject.taskID;
}

} // namespace

KWUserNotificationHandler::KWUserNotificationHandler(Collaborators collaborators)
    : m_with(std::move(collaborators)), m_reminders(m_with.manager)
{
}

void KWUserNotificationHandler::applicationDidFinishLaunching()
{
    const auto on = [this](const QString &name, void (KWUserNotificationHandler::*reaction)()) {
        m_observations.push_back(
            m_with.center.addObserver(name, [this, reaction](const auto &) { (this->*reaction)(); }));
    };
    for (const QString &each : {KWUserDidSignInNotification, KWDataDidChangeOutsideMainAppNotification,
                                KWSyncDidBatchPullNotification, SystemTimeZoneDidChangeNotification})
        on(each, &KWUserNotificationHandler::planAndCheckSoon);
    on(KWUserDidSignOutNotification, &KWUserNotificationHandler::userDidSignOut);
    for (const QString &each :
         {WorkspaceDidWakeNotification, KWNewHabitDayComesNotification, delayDeleteStatusChangedNotification})
        on(each, &KWUserNotificationHandler::checkSoon);
    m_registration = m_with.bus.registerEventBus([this](const StoreChange &change) {
        for (const RecordKind kind : {RecordKind::Task, RecordKind::ChecklistItem, RecordKind::Project,
                                      RecordKind::Habit, RecordKind::HabitCheckin, RecordKind::HabitSkip})
            if (change.touches(kind)) return checkSoon();
    });
    m_with.notifications.onResponse = [this](const auto &response) { respond(response); };
    m_with.notifications.onClosed = [this](const QString &identifier) { m_shown.remove(identifier); };
    planAndCheckSoon();
}

void KWUserNotificationHandler::planAndCheckSoon()
{
    m_isPlanDue = true;
    checkSoon();
}

void KWUserNotificationHandler::userDidSignOut()
{
    withdrawAll();
    m_delivered.clear();
}

void KWUserNotificationHandler::applicationWillTerminate()
{
    m_observations.clear();
    m_registration = {};
    QList<DueReminder> unanswered;
    for (const QList<DueReminder> &each : std::as_const(m_shown))
        unanswered += each;
    unanswered.removeIf([this](const DueReminder &each) { return isStale(each); });
    withdrawAll();
    if (unanswered.isEmpty()) return;
    if (const Result<void> saved = m_reminders.markUndelivered(unanswered); !saved)
        notificationLog.error(saved.error().sentence);
}

void KWUserNotificationHandler::withdrawAll()
{
    for (ClockCall *each : {&m_next, &m_soon, &m_retry})
        each->cancel();
    for (const QString &each : std::exchange(m_shown, {}).keys())
        m_with.notifications.withdraw(each);
}

// Many changes come in a row, and none of them shall wait for this.
void KWUserNotificationHandler::checkSoon()
{
    if (m_with.account.isSignedIn() && !m_soon.isPending())
        m_soon = m_with.clock.callAfter(0ms, [this] { checkReminders(); });
}

void KWUserNotificationHandler::checkReminders()
{
    const auto &user = m_with.account.currentUser();
    if (!user || m_with.isAdaptingDates()) return;
    if (std::exchange(m_isPlanDue, false)) m_reminders.planMissing(user->sid);
    withdrawStale();

    const Instant now = m_with.clock.now();
    QList<DueReminder> due = m_reminders.due({user->sid, user->userServerID}, now);
    due.removeIf([this](const DueReminder &each) { return m_with.isPendingDelete(each.subject.taskID); });
    if (!due.isEmpty()) {
        present(due);
        if (const Result<void> saved = m_reminders.markDelivered(due, now); saved) {
            m_delivered.clear();
        } else {
            notificationLog.error(saved.error().sentence);
            m_retry = m_with.clock.callAfter(retryAfter, [this] { checkReminders(); });
        }
    }
    waitForNext();
}

void KWUserNotificationHandler::present(const QList<DueReminder> &due)
{
    if (!m_with.defaults.value(Settings::notificationsEnabled)) return;
    const Instant now = m_with.clock.now();
    QList<DueReminder> onTime;
    QList<DueReminder> late;
    for (const DueReminder &each : due) {
        const QString identifier = ReminderText::identifierOf(each.subject);
        if (each.isSilent || m_delivered.value(identifier) == each.moment) continue;
        m_delivered.insert(identifier, each.moment);
        (now - each.moment > punctual ? late : onTime).append(each);
    }
    if (late.size() == 1) onTime.prepend(late.takeFirst());
    const ReminderText words{m_with.clock};
    if (!late.isEmpty()) {
        // It takes the place of the one before, so it tells of both.
        QList<DueReminder> all = m_shown.value(ReminderText::digestIdentifier);
        all.removeIf([this](const DueReminder &each) { return isStale(each); });
        all += late;
        show(words.digestOf(all), all);
    }
    for (const DueReminder &each : onTime)
        show(words.notificationOf(each), {each});
}

void KWUserNotificationHandler::show(UserNotification notification, const QList<DueReminder> &reminders)
{
    const bool isHeard = m_with.defaults.value(Settings::notificationSound);
    notification.sound = isHeard ? UserNotification::Sound::AsUsual : UserNotification::Sound::None;
    m_shown.insert(notification.identifier, reminders);
    m_with.notifications.show(notification);
}

void KWUserNotificationHandler::waitForNext()
{
    const auto next = m_reminders.nextRemindTime(m_with.account.currentUserID(), m_with.clock.now());
    m_next = next ? m_with.clock.callAt(*next, [this] { checkReminders(); }) : ClockCall{};
}

// Done, deleted, or about another date by now.
bool KWUserNotificationHandler::isStale(const DueReminder &shown) const
{
    const std::optional<DueReminder> now = m_reminders.reminderOf(shown.subject);
    return !now || now->startDate != shown.startDate || m_with.isPendingDelete(shown.subject.taskID);
}

void KWUserNotificationHandler::withdrawStale()
{
    m_shown.removeIf([this](const auto &each) {
        if (!std::ranges::all_of(each.value(), [this](const auto &shown) { return isStale(shown); }))
            return false;
        m_with.notifications.withdraw(each.key());
        return true;
    });
}

void KWUserNotificationHandler::respond(const UserNotificationCenterPort::Response &response)
{
    if (!m_with.account.isSignedIn() || !m_shown.contains(response.identifier)) return;
    const QList<DueReminder> shown = m_shown.take(response.identifier);
    const DueReminder &reminder = shown.first();
    const bool isOne = shown.size() == 1;
    if (response.action == ReminderText::openAction) {
        m_with.notifications.withdraw(response.identifier);
        QStringList links;
        if (isOne) links.append(linkTo(reminder.subject));
        return m_with.open({.links = links, .activationToken = response.activationToken});
    }
    const Result<void> done =
        isOne && !isStale(reminder) ? act(reminder.subject, response.action) : Result<void>{};
    // Also before it comes again: a server closes a message on which something was pressed.
    m_with.notifications.withdraw(response.identifier);
    if (done) return;
    UserNotification again = ReminderText{m_with.clock}.notificationOf(reminder);
    again.body = done.error().sentence + u'\n' + again.body;
    show(again, shown);
}

Result<void> KWUserNotificationHandler::act(const ReminderSubject &subject, const QString &action)
{
    if (action == ReminderText::completeAction) return complete(subject);
    const std::optional<Instant> until = snoozedUntil(action);
    return until ? m_reminders.snooze(subject, *until) : Result<void>{};
}

Result<void> KWUserNotificationHandler::complete(const ReminderSubject &subject)
{
    if (subject.isHabit()) return finishHabit(subject.habitID);
    if (!subject.itemID.isEmpty()) return KWTaskEditor{m_with.manager}.tickItem(subject.itemID);
    const auto ticked = KWTaskTicker{m_with.manager}.updateStatus(KWTaskStatusCompleted, {subject.taskID});
    return ticked ? Result<void>{} : ticked.error();
}

Result<void> KWUserNotificationHandler::finishHabit(const QString &habitID)
{
    ObjectContext &context = m_with.manager.MR_defaultContext();
    const Day today = KWUserSettings::habitDayOfUser(m_with.account.currentUserID(), context);
    const auto done = KWHabitUtils{m_with.manager}.finishDay(habitID, DayStamp::fromDay(today));
    return done ? Result<void>{} : done.error();
}

std::optional<Instant> KWUserNotificationHandler::snoozedUntil(const QString &action) const
{
    if (action == ReminderText::tomorrowAction) {
        const minutes morning{m_with.account.userSettings().smartTimeForMorning};
        return m_with.clock.zone().toInstant(LocalTime{m_with.clock.today() + days{1}} + morning);
    }
    bool isNumber = false;
    const int delay = QStringView{action}.mid(ReminderText::snoozeAction.size()).toInt(&isNumber);
    if (!isNumber || !action.startsWith(ReminderText::snoozeAction)) return std::nullopt;
    return m_with.clock.now() + minutes{delay};
}
